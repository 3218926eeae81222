#pragma once

#include <QColor>
#include <cstdint>

class QLabel;

namespace sidekin {

// A 24-bit colour number of the legacy platform (blue high, red low: 255 is red).
QColor fromVbColor(std::int32_t value);

// Background and text colour of a label, given as such numbers.
void setLabelColours(QLabel& label, std::int32_t background, std::int32_t text);

}  // namespace sidekin
