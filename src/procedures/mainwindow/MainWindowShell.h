#pragma once

namespace sidekin {

class FrmOrq;

// The main window's shell: its size, its help key, and loading.
void Form_Load(FrmOrq& form);
void Form_Resize(FrmOrq& form);
void Form_KeyDown(FrmOrq& form, int keyCode);

}  // namespace sidekin
