#pragma once

#include <QString>
#include <cstdint>
#include <memory>

namespace sidekin {

using WindowHandle = std::int32_t;

// The few window operations host discovery needs. 0 stands for "no window".
class WindowSystem {
public:
    virtual ~WindowSystem() = default;
    virtual WindowHandle firstChild(WindowHandle parent) = 0;
    virtual WindowHandle nextSibling(WindowHandle window) = 0;
    // At most maxChars characters of the window's title.
    virtual QString title(WindowHandle window, int maxChars) = 0;
    // Places child inside parent; answers the previous parent, 0 on failure.
    virtual WindowHandle setParent(WindowHandle child, WindowHandle parent) = 0;
};

// For platforms without foreign windows: no children, no parenting.
class NullWindowSystem : public WindowSystem {
public:
    WindowHandle firstChild(WindowHandle) override { return 0; }
    WindowHandle nextSibling(WindowHandle) override { return 0; }
    QString title(WindowHandle, int) override { return {}; }
    WindowHandle setParent(WindowHandle, WindowHandle) override { return 0; }
};

WindowSystem& windowSystem();
// Installs the implementation in use; the caller keeps ownership. nullptr restores the null one.
void setWindowSystem(WindowSystem* implementation);

}  // namespace sidekin
