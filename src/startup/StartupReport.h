#pragma once

#include <QString>
#include <chrono>
#include <functional>

namespace sidekin {

// For the start-up benchmark: when the window named windowName first paints (it
// may not exist yet), writes one line
// "shown <ns since the epoch> operator <ns>" to the file, the second figure being
// the time the operator spent on boxes until then.
void reportFirstPaint(const QString& windowName, const QString& file,
                      std::function<std::chrono::system_clock::time_point()> firstBox);

}  // namespace sidekin
