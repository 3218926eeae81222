#pragma once

namespace sidekin {

// One Tab key stroke to the control that has the focus, so it moves on in tab order.
void sendTabKey();

}  // namespace sidekin
