#pragma once

#include <memory>

#include "WindowSystem.h"

namespace sidekin {

// The window system of the platform Qt runs on: X11 under xcb, Win32 under
// windows, the null one elsewhere (offscreen, Wayland, or a build without xcb).
// Needs a QGuiApplication.
std::unique_ptr<WindowSystem> makePlatformWindowSystem();

}  // namespace sidekin
