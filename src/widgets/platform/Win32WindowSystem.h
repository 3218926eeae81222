#pragma once

#include <QPointer>
#include <QTimer>
#include <QWindow>
#include <vector>

#include "WindowSystem.h"

namespace sidekin {

// Window operations on Windows' own windows. A bad or destroyed handle answers 0.
// An embedded window of this process whose foreign parent is destroyed comes
// back as a top-level window: Windows takes the children with it, Wine leaves
// them without a parent, so the parents are watched.
class Win32WindowSystem : public WindowSystem {
public:
    Win32WindowSystem();
    ~Win32WindowSystem() override;
    Win32WindowSystem(const Win32WindowSystem&) = delete;
    Win32WindowSystem& operator=(const Win32WindowSystem&) = delete;

    WindowHandle firstChild(WindowHandle parent) override;
    WindowHandle nextSibling(WindowHandle window) override;
    QString title(WindowHandle window, int maxChars) override;
    // A window of this process is embedded through Qt, so Qt keeps its
    // geometry and input right; any other window is reparented directly.
    WindowHandle setParent(WindowHandle child, WindowHandle parent) override;

private:
    void watchParents();
    void bringOut(QWindow* window);
    void dropEmptyForeignWindows();

    QTimer watch_;

    // Qt stand-ins for foreign parents; they must outlive the windows put in them.
    std::vector<QPointer<QWindow>> foreignParents_;
};

}  // namespace sidekin
