#pragma once

#include "FlexGrid.h"

namespace sidekin {

// The run table's ten columns, addressed as Cols * row + column.
enum RunTableColumn : int {
    ColRunNumber = 0,
    ColSample = 1,
    ColMethod = 2,
    ColSampleId = 3,
    ColInjectionType = 4,
    ColVial = 5,
    ColDataFile = 6,
    ColSampleAmount = 7,
    ColIstdAmount = 8,
    ColSampleInfo = 9,
};

// Status colours of columns 0 and 1 of a run.
constexpr GridColor RnTblColorNone = SysColorButtonFace;
constexpr GridColor RnTblColorCompleted = 0xC0FFFFu;
constexpr GridColor RnTblColorAborted = 0x8080FFu;
constexpr GridColor RnTblColorFileExists = 0xFFFFC0u;

}  // namespace sidekin
