#pragma once

namespace sidekin {

// The main window's commands on the run table. Rows up to the current run are
// out of reach of each of them.
void cmdDown_Click();
void cmdUp_Click();
void cmdRnTblDel_Click();
void cmdRnTblClear_Click();
void cmdRnTblEdit_Click();
void fgrdRunTable_DblClick();
void fgrdRunTable_SelChange();

}  // namespace sidekin
