#pragma once

namespace sidekin {

// Acts on the host's show/hide/end value held in frmORQ.ddeShowORQ:
// "11" shows the main window, "01" hides it, "00" ends the program.
void ShowHideOrq();

// Opens the hot link on the host's "ShowORQ$" in frmORQ.ddeShowORQ.
void iNITddesHOWorq();

}  // namespace sidekin
