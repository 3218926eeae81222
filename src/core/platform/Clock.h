#pragma once

#include <QDateTime>

namespace sidekin {

// Time as the program sees it. Tests install a clock they can set, so that
// time limits and the midnight wrap are tried without waiting.
class Clock {
public:
    virtual ~Clock() = default;
    // Seconds since midnight, in single precision like the legacy timer.
    virtual float secondsSinceMidnight() = 0;
    virtual QDateTime now() = 0;
    // Lets time pass while pending events are served.
    virtual void pause(double seconds) = 0;
    // Serves pending events, waiting up to the given seconds for one to come;
    // uses no processor time while it waits.
    virtual void waitForEvents(double maxSeconds) = 0;
};

Clock& clock();
// Installs the clock in use; the caller keeps ownership. nullptr restores the system clock.
void setClock(Clock* implementation);

float Timer();
QDate today();

}  // namespace sidekin
