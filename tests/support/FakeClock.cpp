#include "FakeClock.h"

#include <QCoreApplication>
#include <algorithm>

namespace sidekin::test {

FakeClock::FakeClock() { setClock(this); }
FakeClock::~FakeClock() { setClock(nullptr); }

float FakeClock::secondsSinceMidnight() {
    const float value = static_cast<float>(moment.time().msecsSinceStartOfDay() / 1000.0);
    advance(stepPerRead);
    return value;
}

void FakeClock::pause(double seconds) { advance(seconds); }

void FakeClock::waitForEvents(double maxSeconds) {
    QCoreApplication::processEvents(QEventLoop::AllEvents);
    advance(std::min(maxSeconds, stepPerWait));
}

void FakeClock::setTime(double secondsSinceMidnight) {
    moment.setTime(QTime::fromMSecsSinceStartOfDay(static_cast<int>(secondsSinceMidnight * 1000)));
}

void FakeClock::advance(double seconds) {
    moment = moment.addMSecs(static_cast<qint64>(seconds * 1000.0));
}

}  // namespace sidekin::test
