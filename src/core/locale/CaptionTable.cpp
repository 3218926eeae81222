#include "CaptionTable.h"

namespace sidekin {

namespace {

constexpr const char* Orq = "frmORQ";
constexpr const char* Add = "frmRnTblAdd";
constexpr const char* Edit = "frmRnTblEdit";

// clang-format off
constexpr CaptionEntry table[] = {
    {Orq, "", 17002, 0, 0},
    {Orq, "fraRunStatus", 17003, 17130, 17316},
    {Orq, "fraSystemStatus", 17004, 17131, 17317},
    {Orq, "fraRunTableControl", 17005, 17132, 17318},
    {Orq, "lblRunTable", 17006, 0, 0},
    {Orq, "lblOperator", 17007, 0, 0},
    {Orq, "lblSubDir", 17008, 0, 0},
    {Orq, "lblAdjRunOrder", 17009, 0, 17319},
    {Orq, "cmdRnTblAdd", 17010, 17138, 0},
    {Orq, "cmdRnTblEdit", 17011, 17139, 0},
    {Orq, "cmdInstructions", 17012, 17140, 0},
    {Orq, "cmdRnTblDel", 17013, 17141, 0},
    {Orq, "cmdRnTblClear", 17014, 17142, 0},
    {Orq, "cmdRnTblPrint", 17015, 17143, 0},
    {Orq, "cmdStartPauseResume", 17016, 17144, 0},
    {Orq, "cmdStop", 17019, 17147, 0},
    {Orq, "fgrdRunTable", 0, 17133, 0},
    {Orq, "cboOperator", 0, 17134, 0},
    {Orq, "txtSubDir", 0, 17135, 0},
    {Orq, "cmdUp", 0, 17136, 0},
    {Orq, "cmdDown", 0, 17137, 0},
    {Add, "", 17070, 0, 0},
    {Add, "lblAddEntry", 17071, 0, 0},
    {Add, "lblSample", 17050, 0, 0},
    {Add, "lblMethod", 17051, 0, 0},
    {Add, "lblSampleID", 17052, 0, 0},
    {Add, "lblDataFile", 17053, 0, 0},
    {Add, "lblSampleInfo", 17054, 0, 0},
    {Add, "lblInjVial", 17055, 0, 0},
    {Add, "lblSampleAmt", 17056, 0, 0},
    {Add, "lblISTDAmt", 17057, 0, 0},
    {Add, "lblVial", 17058, 0, 0},
    {Add, "btnClose", 17064, 17164, 0},
    {Add, "btnClear", 17072, 17170, 0},
    {Add, "cmdAdd", 17073, 17171, 0},
    {Add, "cboSample", 0, 17150, 0},
    {Add, "cboMethod", 0, 17151, 0},
    {Add, "txtSampleID", 0, 17152, 0},
    {Add, "txtDataFile", 0, 17153, 0},
    {Add, "txtSampleInfo", 0, 17154, 0},
    {Add, "cboInjVial", 0, 17155, 0},
    {Add, "txtSampleAmt", 0, 17156, 0},
    {Add, "txtISTDAmt", 0, 17157, 0},
    {Add, "cboVialNum", 0, 17158, 0},
    {Edit, "", 17080, 0, 0},
    {Edit, "lblEditEntry", 17081, 0, 0},
    {Edit, "lblSample", 17050, 0, 0},
    {Edit, "lblMethod", 17051, 0, 0},
    {Edit, "lblSampleID", 17052, 0, 0},
    {Edit, "lblDataFile", 17053, 0, 0},
    {Edit, "lblSampleInfo", 17054, 0, 0},
    {Edit, "lblInjVial", 17055, 0, 0},
    {Edit, "lblSampleAmt", 17056, 0, 0},
    {Edit, "lblISTDAmt", 17057, 0, 0},
    {Edit, "lblVial", 17058, 0, 0},
    {Edit, "btnClose", 17064, 17164, 0},
    {Edit, "btnPrevious", 17082, 17180, 0},
    {Edit, "btnNext", 17083, 17181, 0},
    {Edit, "btnReplace", 17084, 17182, 0},
    {Edit, "cboSample", 0, 17150, 0},
    {Edit, "cboMethod", 0, 17151, 0},
    {Edit, "txtSampleID", 0, 17152, 0},
    {Edit, "txtDataFile", 0, 17153, 0},
    {Edit, "txtSampleInfo", 0, 17154, 0},
    {Edit, "cboInjVial", 0, 17155, 0},
    {Edit, "txtSampleAmt", 0, 17156, 0},
    {Edit, "txtISTDAmt", 0, 17157, 0},
    {Edit, "cboVialNum", 0, 17158, 0},
};
// clang-format on

}  // namespace

std::span<const CaptionEntry> captionTable() { return table; }

}  // namespace sidekin
