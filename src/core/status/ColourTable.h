#pragma once

#include <QString>
#include <cstdint>

namespace sidekin {

// Colours of the host's status colour names, as decimal texts of 24-bit numbers
// with blue in the high byte and red in the low byte. "Sys" and "Mth" names give
// the same colours; comparison is exact, case included. An unknown name gives
// white background, black text and the result 1; a known one 0.
std::int16_t CS2VbColor(const QString& name, QString& background, QString& textColour);

}  // namespace sidekin
