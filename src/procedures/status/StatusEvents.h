#pragma once

namespace sidekin {

// Change events of the boxes ddeSystemStatus and ddeStatusTime of CPLinks.
// A carriage return before the last character marks a line end, which is cut.
void DDESystemStatus_Change();
// The time label follows the host only while a walk through the table runs.
void DDEStstusTime_Change();

}  // namespace sidekin
