#pragma once

#include "Clock.h"

namespace sidekin::test {

// A clock set by the test. Each read of the timer may move it on by a step, so
// loops that watch the clock see time pass; it wraps at midnight like the real one.
class FakeClock : public Clock {
public:
    FakeClock();   // installs itself
    ~FakeClock();  // restores the system clock

    float secondsSinceMidnight() override;
    QDateTime now() override { return moment; }
    void pause(double seconds) override;
    // Serves what is pending and lets a step of time pass (at most maxSeconds).
    void waitForEvents(double maxSeconds) override;

    void setTime(double secondsSinceMidnight);
    void advance(double seconds);

    QDateTime moment{QDate(2026, 11, 22), QTime(12, 0)};
    double stepPerRead = 0.0;
    double stepPerWait = 0.1;
};

}  // namespace sidekin::test
