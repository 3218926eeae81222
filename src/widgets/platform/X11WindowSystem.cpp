#include "X11WindowSystem.h"

#include <xcb/xcb.h>

#include <QGuiApplication>
#include <QTimer>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace sidekin {

namespace {

struct FreeDeleter {
    void operator()(void* p) const { std::free(p); }
};
template <typename T>
using Reply = std::unique_ptr<T, FreeDeleter>;

std::uint32_t toX(WindowHandle handle) { return static_cast<std::uint32_t>(handle); }
WindowHandle fromX(std::uint32_t window) { return static_cast<WindowHandle>(window); }

QWindow* ownWindow(WindowHandle handle) {
    if (!qGuiApp || handle == 0) return nullptr;
    for (QWindow* window : QGuiApplication::allWindows()) {
        // handle() first: winId() would create a window not yet made.
        if (window->handle() && window->type() != Qt::ForeignWindow &&
            fromX(static_cast<std::uint32_t>(window->winId())) == handle)
            return window;
    }
    return nullptr;
}

bool hostsWindows(const QWindow& window) {
    return !window.findChildren<QWindow*>(Qt::FindDirectChildrenOnly).isEmpty();
}

}  // namespace

X11WindowSystem::X11WindowSystem() {
    if (qGuiApp) {
        if (auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>())
            connection_ = x11->connection();
        if (connection_) qGuiApp->installNativeEventFilter(this);
    }
    if (!connection_) {
        xcb_connection_t* own = xcb_connect(nullptr, nullptr);
        if (xcb_connection_has_error(own)) {
            xcb_disconnect(own);
            return;
        }
        connection_ = own;
        ownsConnection_ = true;
    }
    utf8String_ = internAtom("UTF8_STRING");
}

X11WindowSystem::~X11WindowSystem() {
    if (qGuiApp) qGuiApp->removeNativeEventFilter(this);
    // A stand-in that still holds an embedded window stays: deleting it would
    // delete that window with it.
    for (const QPointer<QWindow>& foreign : foreignParents_) {
        if (foreign && !hostsWindows(*foreign)) delete foreign.data();
    }
    if (ownsConnection_) xcb_disconnect(connection_);
}

X11WindowSystem::Tree X11WindowSystem::queryTree(std::uint32_t window) const {
    Tree tree;
    if (!connection_ || window == 0) return tree;
    xcb_generic_error_t* error = nullptr;
    Reply<xcb_query_tree_reply_t> reply(
        xcb_query_tree_reply(connection_, xcb_query_tree(connection_, window), &error));
    std::free(error);
    if (!reply) return tree;
    const xcb_window_t* children = xcb_query_tree_children(reply.get());
    tree.children.assign(children, children + xcb_query_tree_children_length(reply.get()));
    tree.root = reply->root;
    tree.parent = reply->parent;
    tree.ok = true;
    return tree;
}

X11WindowSystem::Property X11WindowSystem::readProperty(std::uint32_t window, std::uint32_t atom,
                                                        std::uint32_t longs) const {
    Property property;
    xcb_generic_error_t* error = nullptr;
    Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        connection_,
        xcb_get_property(connection_, 0, window, atom, XCB_GET_PROPERTY_TYPE_ANY, 0, longs),
        &error));
    std::free(error);
    if (!reply) return property;
    property.type = reply->type;
    property.format = reply->format;
    property.bytesAfter = reply->bytes_after;
    property.bytes = QByteArray(static_cast<const char*>(xcb_get_property_value(reply.get())),
                                xcb_get_property_value_length(reply.get()));
    return property;
}

std::uint32_t X11WindowSystem::internAtom(const char* name) const {
    Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        connection_, xcb_intern_atom(connection_, 0, std::strlen(name), name), nullptr));
    return reply ? reply->atom : 0;
}

WindowHandle X11WindowSystem::firstChild(WindowHandle parent) {
    const Tree tree = queryTree(toX(parent));
    return tree.children.empty() ? 0 : fromX(tree.children.back());
}

WindowHandle X11WindowSystem::nextSibling(WindowHandle window) {
    const Tree own = queryTree(toX(window));
    if (!own.ok) return 0;
    const Tree siblings = queryTree(own.parent);
    for (std::size_t i = siblings.children.size(); i-- > 1;) {
        if (siblings.children[i] == toX(window)) return fromX(siblings.children[i - 1]);
    }
    return 0;
}

QString X11WindowSystem::title(WindowHandle window, int maxChars) {
    if (!connection_ || window == 0 || maxChars <= 0) return {};
    const auto units = static_cast<std::uint32_t>(maxChars);
    Property name = readProperty(toX(window), XCB_ATOM_WM_NAME, (units + 3) / 4);
    // One byte per character except in UTF-8, where maxChars may need four each.
    if (utf8String_ != 0 && name.type == utf8String_ && name.bytesAfter > 0)
        name = readProperty(toX(window), XCB_ATOM_WM_NAME, units);
    if (name.format != 8) return {};
    const QString text =
        name.type == utf8String_ ? QString::fromUtf8(name.bytes) : QString::fromLatin1(name.bytes);
    return text.left(maxChars);
}

WindowHandle X11WindowSystem::setParent(WindowHandle child, WindowHandle parent) {
    if (!connection_ || child == 0) return 0;
    const Tree before = queryTree(toX(child));
    if (!before.ok) return 0;
    const std::uint32_t target = parent == 0 ? before.root : toX(parent);
    if (parent != 0 && !queryTree(target).ok) return 0;

    if (QWindow* window = ownWindow(child)) {
        QWindow* host = nullptr;
        if (parent != 0) {
            host = ownWindow(parent);
            if (!host) {
                host = QWindow::fromWinId(static_cast<WId>(target));
                if (!host) return 0;
                foreignParents_.emplace_back(host);
            }
        }
        window->setParent(host);
        dropEmptyForeignWindows();
    } else {
        xcb_generic_error_t* error = xcb_request_check(
            connection_, xcb_reparent_window_checked(connection_, toX(child), target, 0, 0));
        if (error) {
            std::free(error);
            return 0;
        }
    }
    return fromX(before.parent);
}

void X11WindowSystem::dropEmptyForeignWindows() {
    std::erase_if(foreignParents_, [](const QPointer<QWindow>& foreign) {
        if (foreign && hostsWindows(*foreign)) return false;
        delete foreign.data();
        return true;
    });
}

bool X11WindowSystem::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*) {
    if (eventType != "xcb_generic_event_t") return false;
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    if ((event->response_type & 0x7f) != XCB_DESTROY_NOTIFY) return false;
    const auto* destroyed = static_cast<const xcb_destroy_notify_event_t*>(message);
    QWindow* window = ownWindow(fromX(destroyed->window));
    if (!window || !window->parent() || window->parent()->type() != Qt::ForeignWindow) return false;
    // Not inside Qt's own handling of this event.
    QTimer::singleShot(0, qGuiApp, [this, guard = QPointer<QWindow>(window)] { bringOut(guard); });
    return false;
}

void X11WindowSystem::bringOut(QPointer<QWindow> window) {
    if (!window) return;
    const bool wasVisible = window->isVisible();
    // The native window is gone: a new one is made at the top level.
    window->destroy();
    window->setParent(nullptr);
    dropEmptyForeignWindows();
    if (wasVisible) window->setVisible(true);
}

}  // namespace sidekin
