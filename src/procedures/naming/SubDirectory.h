#pragma once

#include <cstdint>

namespace sidekin {

// Proposes txtSubDir from [System] DataSubDirMode / DataSubDir, the operator and today.
void SetSubDirectory();

void txtSubDir_Change();
void txtSubDir_KeyPress(std::int16_t keyAscii);
void txtSubDir_LostFocus();

}  // namespace sidekin
