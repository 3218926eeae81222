#pragma once

#include <QKeyEvent>
#include <cstdint>

namespace sidekin {

// The legacy key code of a key press: Return is 13, other keys their character.
inline std::int16_t keyAscii(const QKeyEvent& event) {
    if (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) return 13;
    return event.text().isEmpty() ? 0 : static_cast<std::int16_t>(event.text().at(0).unicode());
}

}  // namespace sidekin
