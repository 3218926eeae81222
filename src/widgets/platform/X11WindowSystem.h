#pragma once

#include <QAbstractNativeEventFilter>
#include <QPointer>
#include <QWindow>
#include <cstdint>
#include <vector>

#include "WindowSystem.h"

struct xcb_connection_t;

namespace sidekin {

// Window operations on the X display. Uses Qt's own connection when Qt runs on
// xcb, so requests stay in order with Qt's; otherwise opens one on $DISPLAY.
// A bad or destroyed handle answers 0, never an X error.
// An embedded window of this process whose foreign parent is destroyed (the X
// server takes the children with it) comes back as a top-level window.
class X11WindowSystem : public WindowSystem, private QAbstractNativeEventFilter {
public:
    X11WindowSystem();
    ~X11WindowSystem() override;
    X11WindowSystem(const X11WindowSystem&) = delete;
    X11WindowSystem& operator=(const X11WindowSystem&) = delete;

    bool isConnected() const { return connection_ != nullptr; }
    xcb_connection_t* connection() const { return connection_; }

    // Top-most child first, as the window manager stacks them.
    WindowHandle firstChild(WindowHandle parent) override;
    WindowHandle nextSibling(WindowHandle window) override;
    // WM_NAME, cut to maxChars characters.
    QString title(WindowHandle window, int maxChars) override;
    // A window of this process is embedded through Qt, so Qt keeps its
    // geometry and input right; any other window is reparented directly.
    WindowHandle setParent(WindowHandle child, WindowHandle parent) override;

private:
    struct Tree {
        bool ok = false;
        std::uint32_t root = 0;
        std::uint32_t parent = 0;
        std::vector<std::uint32_t> children;  // bottom-most first
    };
    struct Property {
        std::uint32_t type = 0;
        int format = 0;
        std::uint32_t bytesAfter = 0;
        QByteArray bytes;
    };

    Tree queryTree(std::uint32_t window) const;
    Property readProperty(std::uint32_t window, std::uint32_t atom, std::uint32_t longs) const;
    std::uint32_t internAtom(const char* name) const;
    void dropEmptyForeignWindows();
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr*) override;
    void bringOut(QPointer<QWindow> window);

    xcb_connection_t* connection_ = nullptr;
    bool ownsConnection_ = false;
    std::uint32_t utf8String_ = 0;
    // Qt stand-ins for foreign parents; they must outlive the windows put in them.
    std::vector<QPointer<QWindow>> foreignParents_;
};

}  // namespace sidekin
