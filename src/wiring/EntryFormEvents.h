#pragma once

namespace sidekin {

class FrmRnTblAdd;
class FrmRnTblEdit;

// The entry forms' events connected to their procedures, once per form.
void wireFrmRnTblAdd(FrmRnTblAdd& form);
void wireFrmRnTblEdit(FrmRnTblEdit& form);

// Has both entry forms wired (and the Add form loaded) at their first access.
void installEntryFormWiring();

}  // namespace sidekin
