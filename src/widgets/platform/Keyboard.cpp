#include "Keyboard.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

namespace sidekin {

void sendTabKey() {
    if (QWidget* focus = QApplication::focusWidget()) {
        QCoreApplication::postEvent(focus,
                                    new QKeyEvent(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier));
        QCoreApplication::postEvent(focus,
                                    new QKeyEvent(QEvent::KeyRelease, Qt::Key_Tab, Qt::NoModifier));
    }
}

}  // namespace sidekin
