#pragma once

#include <QKeyEvent>
#include <cstdint>

namespace sidekin {

// The legacy key code of a key press: Return is 13, other keys their character.
inline std::int16_t keyAscii(const QKeyEvent& event) {
    if (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) return 13;
    return event.text().isEmpty() ? 0 : static_cast<std::int16_t>(event.text().at(0).unicode());
}

// The legacy virtual key code of the keys the forms look at: Return 13, F1 to F12
// 112 to 123; other keys 0.
inline int keyCode(const QKeyEvent& event) {
    if (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) return 13;
    if (event.key() >= Qt::Key_F1 && event.key() <= Qt::Key_F12)
        return 112 + (event.key() - Qt::Key_F1);
    return 0;
}

}  // namespace sidekin
