#include "Win32WindowSystem.h"

#include <windows.h>

#include <QGuiApplication>

namespace sidekin {

namespace {

// Window handles carry 32 significant bits; widening sign-extends them.
HWND toHwnd(WindowHandle handle) { return reinterpret_cast<HWND>(static_cast<intptr_t>(handle)); }
WindowHandle fromHwnd(HWND window) {
    return static_cast<WindowHandle>(reinterpret_cast<intptr_t>(window));
}

HWND checked(WindowHandle handle) {
    HWND window = toHwnd(handle);
    return handle != 0 && IsWindow(window) ? window : nullptr;
}

QWindow* ownWindow(HWND handle) {
    if (!qGuiApp || !handle) return nullptr;
    for (QWindow* window : QGuiApplication::allWindows()) {
        // handle() first: winId() would create a window not yet made.
        if (window->handle() && window->type() != Qt::ForeignWindow &&
            reinterpret_cast<HWND>(window->winId()) == handle)
            return window;
    }
    return nullptr;
}

bool hostsWindows(const QWindow& window) {
    return !window.findChildren<QWindow*>(Qt::FindDirectChildrenOnly).isEmpty();
}

}  // namespace

constexpr int ParentWatchMs = 250;

Win32WindowSystem::Win32WindowSystem() {
    watch_.setInterval(ParentWatchMs);
    QObject::connect(&watch_, &QTimer::timeout, [this] { watchParents(); });
}

Win32WindowSystem::~Win32WindowSystem() = default;

WindowHandle Win32WindowSystem::firstChild(WindowHandle parent) {
    HWND window = checked(parent);
    return window ? fromHwnd(GetWindow(window, GW_CHILD)) : 0;
}

WindowHandle Win32WindowSystem::nextSibling(WindowHandle window) {
    HWND own = checked(window);
    return own ? fromHwnd(GetWindow(own, GW_HWNDNEXT)) : 0;
}

QString Win32WindowSystem::title(WindowHandle window, int maxChars) {
    HWND own = checked(window);
    if (!own || maxChars <= 0) return {};
    QByteArray buffer(maxChars + 1, '\0');
    const int length = GetWindowTextA(own, buffer.data(), maxChars + 1);
    return QString::fromLocal8Bit(buffer.constData(), length > 0 ? length : 0);
}

WindowHandle Win32WindowSystem::setParent(WindowHandle child, WindowHandle parent) {
    HWND own = checked(child);
    if (!own) return 0;
    HWND target = parent == 0 ? nullptr : checked(parent);
    if (parent != 0 && !target) return 0;
    const HWND before = GetAncestor(own, GA_PARENT);

    if (QWindow* window = ownWindow(own)) {
        QWindow* host = nullptr;
        if (target) {
            host = ownWindow(target);
            if (!host) {
                host = QWindow::fromWinId(reinterpret_cast<WId>(target));
                if (!host) return 0;
                foreignParents_.emplace_back(host);
            }
        }
        window->setParent(host);
        dropEmptyForeignWindows();
        if (!foreignParents_.empty()) watch_.start();
    } else if (!SetParent(own, target)) {
        return 0;
    }
    return fromHwnd(before);
}

void Win32WindowSystem::dropEmptyForeignWindows() {
    std::erase_if(foreignParents_, [](const QPointer<QWindow>& foreign) {
        if (foreign && hostsWindows(*foreign)) return false;
        delete foreign.data();
        return true;
    });
}

void Win32WindowSystem::watchParents() {
    for (const QPointer<QWindow>& foreign : std::vector(foreignParents_)) {
        if (!foreign || IsWindow(reinterpret_cast<HWND>(foreign->winId()))) continue;
        for (QWindow* window : foreign->findChildren<QWindow*>(Qt::FindDirectChildrenOnly))
            bringOut(window);
    }
    dropEmptyForeignWindows();
    if (foreignParents_.empty()) watch_.stop();
}

void Win32WindowSystem::bringOut(QWindow* window) {
    const bool wasVisible = window->isVisible();
    // Its native window went with the parent, or is left without one: a new one is made.
    window->destroy();
    window->setParent(nullptr);
    if (wasVisible) window->setVisible(true);
}

}  // namespace sidekin
