#pragma once

#include <QString>

namespace sidekin {

// The host's English status words replaced by the words of the language in use.
// Text around a word stays as the host sent it; unknown texts come back unchanged.

// "Ready", "Not Ready", "Run in Progress": every rule runs, the last that fires wins.
QString LocalizeSysStatusReady(const QString& hostText);
// The method phases: the first rule that fires wins.
QString LocalizeSysStatusMethod(const QString& hostText);
// What the time measures: "Elapsed", "Post Run", then "Last Run" overruled by
// "Prepare" or "nRdy Wait".
QString LocalizeStatusDescript(const QString& hostText);
// The time unit "min".
QString LocalizeStatusTimeUnits(const QString& hostText);

}  // namespace sidekin
