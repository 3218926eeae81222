#include "WaitUntil.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>

namespace sidekin::test {

bool waitUntil(const std::function<bool()>& done, int ms) {
    QDeadlineTimer deadline(ms);
    while (!done()) {
        if (deadline.hasExpired()) return false;
        QTimer wake;
        wake.start(20);
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

}  // namespace sidekin::test
