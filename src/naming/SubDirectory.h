#pragma once

#include <cstdint>

namespace sidekin {

class FrmOrq;

// Proposes txtSubDir from [System] DataSubDirMode / DataSubDir, the operator and today.
void SetSubDirectory();

void txtSubDir_Change();
void txtSubDir_KeyPress(std::int16_t keyAscii);
void txtSubDir_LostFocus();

// Connects txtSubDir's events, for every frmORQ made from now on.
void wireSubDirectoryEvents();

}  // namespace sidekin
