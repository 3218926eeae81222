#pragma once

namespace sidekin {

// The system status frame tells that the host's link is gone, with the time it
// went, without touching the labels, which keep the host's last words. A later
// item from the host takes the mark away.
void HostLinkChanged(bool alive);

}  // namespace sidekin
