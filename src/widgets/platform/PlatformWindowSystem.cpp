#include "PlatformWindowSystem.h"

#include <QGuiApplication>

#ifdef SIDEKIN_HAVE_X11
#include "X11WindowSystem.h"
#endif
#ifdef Q_OS_WIN
#include "Win32WindowSystem.h"
#endif

namespace sidekin {

std::unique_ptr<WindowSystem> makePlatformWindowSystem() {
#ifdef Q_OS_WIN
    if (QGuiApplication::platformName() == QLatin1String("windows"))
        return std::make_unique<Win32WindowSystem>();
#endif
#ifdef SIDEKIN_HAVE_X11
    if (QGuiApplication::platformName() == QLatin1String("xcb")) {
        auto x11 = std::make_unique<X11WindowSystem>();
        if (x11->isConnected()) return x11;
    }
#endif
    return std::make_unique<NullWindowSystem>();
}

}  // namespace sidekin
