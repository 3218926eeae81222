#include "Clock.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>
#include <algorithm>

namespace sidekin {

namespace {

class SystemClock : public Clock {
public:
    float secondsSinceMidnight() override {
        const QTime t = QTime::currentTime();
        return static_cast<float>(t.msecsSinceStartOfDay() / 1000.0);
    }
    QDateTime now() override { return QDateTime::currentDateTime(); }
    void pause(double seconds) override {
        QEventLoop loop;
        QTimer::singleShot(static_cast<int>(seconds * 1000.0), &loop, &QEventLoop::quit);
        loop.exec();
    }
    void waitForEvents(double maxSeconds) override {
        if (!QCoreApplication::instance()) return;
        // The timer only wakes the loop; what woke it does not matter.
        QTimer wake;
        wake.setSingleShot(true);
        wake.start(static_cast<int>(std::clamp(maxSeconds, 0.0, 86400.0) * 1000.0));
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
};

SystemClock systemClock;
Clock* current = &systemClock;

}  // namespace

Clock& clock() { return *current; }

void setClock(Clock* implementation) { current = implementation ? implementation : &systemClock; }

float Timer() { return clock().secondsSinceMidnight(); }

QDate today() { return clock().now().date(); }

}  // namespace sidekin
