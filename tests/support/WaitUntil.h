#pragma once

#include <functional>

namespace sidekin::test {

// Serves events until done() holds or ms have passed; answers done().
bool waitUntil(const std::function<bool()>& done, int ms = 10000);

}  // namespace sidekin::test
