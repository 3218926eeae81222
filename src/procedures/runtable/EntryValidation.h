#pragma once

namespace sidekin {

class EntryForm;
class FrmOrq;

// The checks before an entry form's row enters the run table, in order; the
// first fault is told to the operator and gives false.
bool ValidRunTableEntries(FrmOrq& orq, EntryForm& form);

}  // namespace sidekin
