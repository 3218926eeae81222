#pragma once

#include <QString>

namespace sidekin {

// The host's system status, "x|x|ready colour|ready text|method colour|method text",
// shown in lblSysStatusReady and lblSysStatusMethod of frmORQ. The steps are
// nested: an empty field or an unknown colour ends the update, what was done stays.
void UpdateSystemStatus(const QString& status);

// The host's time status, "what|value|unit", shown in lblStatusTime as
// "what: value unit". An empty first or second field leaves the label as it is.
void UpdateStatusTime(const QString& status);

}  // namespace sidekin
