#pragma once

#include <QString>
#include <chrono>
#include <functional>

namespace sidekin {

// For the start-up benchmark: when the window named windowName first paints (it
// may not exist yet), writes one line
// "shown <ns since the epoch> box <ns since the epoch>" to the file, the second
// being what firstBox answers then.
void reportFirstPaint(const QString& windowName, const QString& file,
                      std::function<std::chrono::system_clock::time_point()> firstBox);

}  // namespace sidekin
