#include <gtest/gtest.h>
#include <xcb/xcb.h>

#include <QGuiApplication>
#include <QTest>
#include <QWidget>
#include <QWindow>
#include <cstdlib>
#include <vector>

#include "platform/PlatformWindowSystem.h"
#include "platform/Screen.h"
#include "platform/X11WindowSystem.h"

using namespace sidekin;

namespace {

// Real windows on the test's display, made on the connection under test so
// that every request is in order with its queries.
class X11WindowSystemTest : public ::testing::Test {
protected:
    void SetUp() override {
        if (QGuiApplication::platformName() != QLatin1String("xcb"))
            GTEST_SKIP() << "needs Qt on an X display (xcb)";
        system = std::make_unique<X11WindowSystem>();
        ASSERT_TRUE(system->isConnected());
        c = system->connection();
        root = static_cast<WindowHandle>(xcb_setup_roots_iterator(xcb_get_setup(c)).data->root);
    }
    void TearDown() override {
        system.reset();
        for (xcb_window_t window : made) xcb_destroy_window(c, window);
        if (c) xcb_flush(c);
    }

    WindowHandle makeWindow(WindowHandle parent, const QByteArray& title = {}) {
        const xcb_window_t window = xcb_generate_id(c);
        xcb_create_window(c, XCB_COPY_FROM_PARENT, window, static_cast<xcb_window_t>(parent), 0, 0,
                          100, 50, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0,
                          nullptr);
        xcb_change_property(c, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, 8,
                            title.size(), title.constData());
        if (parent == root) made.push_back(window);
        return static_cast<WindowHandle>(window);
    }

    WindowHandle parentOf(WindowHandle window) {
        xcb_query_tree_reply_t* reply =
            xcb_query_tree_reply(c, xcb_query_tree(c, static_cast<xcb_window_t>(window)), nullptr);
        const WindowHandle parent = reply ? static_cast<WindowHandle>(reply->parent) : 0;
        std::free(reply);
        return parent;
    }

    std::unique_ptr<X11WindowSystem> system;
    xcb_connection_t* c = nullptr;
    WindowHandle root = 0;
    std::vector<xcb_window_t> made;
};

// What the search for the host's view reads, and the system the program picks under X.
TEST_F(X11WindowSystemTest, ChildrenTopMostFirstWithTitlesCut) {
    const WindowHandle host = makeWindow(root);
    const WindowHandle first = makeWindow(host, "Display ViewMGR");
    const WindowHandle second = makeWindow(host, "Host");
    EXPECT_EQ(system->firstChild(host), second);
    EXPECT_EQ(system->nextSibling(second), first);
    EXPECT_EQ(system->nextSibling(first), 0);
    EXPECT_EQ(system->title(first, 14), "Display ViewMG");
    EXPECT_EQ(system->title(second, 14), "Host");
    EXPECT_EQ(system->firstChild(WindowHandle{0x1ffffff0}), 0);  // a bad handle, no X error
    EXPECT_EQ(xcb_connection_has_error(c), 0);
    EXPECT_NE(dynamic_cast<X11WindowSystem*>(makePlatformWindowSystem().get()), nullptr);
}

TEST_F(X11WindowSystemTest, OwnWidgetIsEmbeddedInAForeignWindowAndBackOut) {
    const WindowHandle host = makeWindow(root, "Host ViewMGR");
    QWidget form;
    const WindowHandle handle = windowHandleOf(form);
    const WindowHandle before = parentOf(handle);
    ASSERT_NE(before, 0);
    const WindowHandle gone = makeWindow(root);
    xcb_destroy_window(c, static_cast<xcb_window_t>(gone));
    EXPECT_EQ(system->setParent(handle, gone), 0);
    EXPECT_EQ(parentOf(handle), before);

    EXPECT_EQ(system->setParent(handle, host), before);
    EXPECT_EQ(parentOf(handle), host);
    EXPECT_EQ(system->firstChild(host), handle);
    form.show();
    EXPECT_EQ(parentOf(handle), host);

    EXPECT_EQ(system->setParent(handle, 0), host);
    EXPECT_EQ(parentOf(handle), root);
    EXPECT_EQ(form.windowHandle()->parent(), nullptr);
}

TEST_F(X11WindowSystemTest, EmbeddedWidgetOutlivesItsHostWindow) {
    const xcb_window_t host = static_cast<xcb_window_t>(makeWindow(root, "Host ViewMGR"));
    QWidget form;
    system->setParent(windowHandleOf(form), host);
    form.show();
    made.clear();
    xcb_destroy_window(c, host);
    xcb_flush(c);

    auto outside = [&] {
        const WindowHandle now = form.windowHandle() && form.windowHandle()->handle()
                                     ? static_cast<WindowHandle>(form.windowHandle()->winId())
                                     : 0;
        return now != 0 && parentOf(now) == root;
    };
    EXPECT_TRUE(QTest::qWaitFor(outside, 5000));
    EXPECT_TRUE(form.isVisible());
}

}  // namespace
