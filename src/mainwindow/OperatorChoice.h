#pragma once

namespace sidekin {

// The operator list and the Add button of frmORQ.
void cboOperator_Click();
void cmdRnTblAdd_Click();

}  // namespace sidekin
