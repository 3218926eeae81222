#include "Sleep.h"

#include "platform/Clock.h"
#include "platform/ErrorHandler.h"

namespace sidekin {

void sleep(float seconds) {
    handled("sleep", [&] {
        const float start = Timer();
        const float target = start + seconds;
        for (;;) {
            float now = Timer();
            if (now < start) now += 86400.0f;
            if (now >= target) return;
            clock().waitForEvents(target - now);
        }
    });
}

}  // namespace sidekin
