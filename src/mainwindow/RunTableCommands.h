#pragma once

namespace sidekin {

// The main window's commands that open the entry forms on the run table.
void cmdRnTblEdit_Click();
void fgrdRunTable_DblClick();

}  // namespace sidekin
