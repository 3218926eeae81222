#pragma once

namespace sidekin {

// Waits the given seconds while pending events are served; safe across midnight.
void sleep(float seconds);

}  // namespace sidekin
