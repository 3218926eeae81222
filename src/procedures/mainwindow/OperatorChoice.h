#pragma once

namespace sidekin {

// The operator list, the Add button and the Instructions button of frmORQ.
void cboOperator_Click();
void cboOperator_KeyUp(int keyCode);
void cmdRnTblAdd_Click();
void cmdInstructions_Click();

}  // namespace sidekin
