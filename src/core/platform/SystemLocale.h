#pragma once

#include <cstdint>

namespace sidekin {

// The locale identifier of the default locale, as the legacy platform numbers
// locales: 1033 English (United States), 1041 Japanese, 2052 Chinese (Simplified), ...
std::int32_t GetSystemDefaultLCID();

}  // namespace sidekin
