#pragma once

#include <QString>
#include <functional>
#include <map>
#include <vector>

#include "WindowSystem.h"

namespace sidekin::test {

// A tree of windows made by the test; records every parenting asked for.
class FakeWindowSystem : public WindowSystem {
public:
    FakeWindowSystem();   // installs itself
    ~FakeWindowSystem();  // restores the null one

    // Adds a child at the end of parent's chain; answers its handle.
    WindowHandle addWindow(WindowHandle parent, const QString& title);

    WindowHandle firstChild(WindowHandle parent) override;
    WindowHandle nextSibling(WindowHandle window) override;
    QString title(WindowHandle window, int maxChars) override;
    WindowHandle setParent(WindowHandle child, WindowHandle parent) override;

    std::map<WindowHandle, std::vector<WindowHandle>> children;
    std::map<WindowHandle, WindowHandle> parentOf;
    std::map<WindowHandle, QString> titles;
    std::vector<std::pair<WindowHandle, WindowHandle>> parentings;  // child, new parent
    int firstChildCalls = 0;
    std::function<void(int)> onFirstChild;  // called with the count of calls so far
    WindowHandle nextHandle = 1000;
};

}  // namespace sidekin::test
