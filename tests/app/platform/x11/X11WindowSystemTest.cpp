#include <gtest/gtest.h>
#include <xcb/xcb.h>

#include <QGuiApplication>
#include <QWidget>
#include <QWindow>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "platform/PlatformWindowSystem.h"
#include "platform/Screen.h"
#include "platform/X11WindowSystem.h"

using namespace sidekin;

namespace {

bool onX11() { return QGuiApplication::platformName() == QLatin1String("xcb"); }

// Real windows on the test's display, made on the connection under test so
// that every request is in order with its queries.
class X11WindowSystemTest : public ::testing::Test {
protected:
    void SetUp() override {
        if (!onX11()) GTEST_SKIP() << "needs Qt on an X display (xcb)";
        system = std::make_unique<X11WindowSystem>();
        ASSERT_TRUE(system->isConnected());
        c = system->connection();
        root = static_cast<WindowHandle>(xcb_setup_roots_iterator(xcb_get_setup(c)).data->root);
    }

    void TearDown() override {
        system.reset();
        if (!c) return;
        for (xcb_window_t window : topLevels) xcb_destroy_window(c, window);
        xcb_flush(c);
    }

    WindowHandle makeWindow(WindowHandle parent = 0) {
        const xcb_window_t window = xcb_generate_id(c);
        const auto in = static_cast<xcb_window_t>(parent ? parent : root);
        xcb_create_window(c, XCB_COPY_FROM_PARENT, window, in, 0, 0, 100, 50, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        if (parent == 0) topLevels.push_back(window);
        return static_cast<WindowHandle>(window);
    }

    WindowHandle makeTitled(const QByteArray& title, const char* type = "STRING") {
        const WindowHandle window = makeWindow();
        xcb_change_property(c, XCB_PROP_MODE_REPLACE, static_cast<xcb_window_t>(window),
                            XCB_ATOM_WM_NAME, atom(type), 8, title.size(), title.constData());
        return window;
    }

    xcb_atom_t atom(const char* name) {
        xcb_intern_atom_reply_t* reply =
            xcb_intern_atom_reply(c, xcb_intern_atom(c, 0, std::strlen(name), name), nullptr);
        const xcb_atom_t result = reply ? reply->atom : XCB_NONE;
        std::free(reply);
        return result;
    }

    WindowHandle parentOf(WindowHandle window) {
        xcb_query_tree_reply_t* reply =
            xcb_query_tree_reply(c, xcb_query_tree(c, static_cast<xcb_window_t>(window)), nullptr);
        const WindowHandle parent = reply ? static_cast<WindowHandle>(reply->parent) : 0;
        std::free(reply);
        return parent;
    }

    void raise(WindowHandle window) {
        const std::uint32_t above = XCB_STACK_MODE_ABOVE;
        xcb_configure_window(c, static_cast<xcb_window_t>(window), XCB_CONFIG_WINDOW_STACK_MODE,
                             &above);
    }

    std::unique_ptr<X11WindowSystem> system;
    xcb_connection_t* c = nullptr;
    WindowHandle root = 0;
    std::vector<xcb_window_t> topLevels;
};

TEST_F(X11WindowSystemTest, ChildrenAreWalkedTopMostFirst) {
    const WindowHandle parent = makeWindow();
    const WindowHandle first = makeWindow(parent);
    const WindowHandle second = makeWindow(parent);
    const WindowHandle third = makeWindow(parent);

    EXPECT_EQ(system->firstChild(parent), third);
    EXPECT_EQ(system->nextSibling(third), second);
    EXPECT_EQ(system->nextSibling(second), first);
    EXPECT_EQ(system->nextSibling(first), 0);
    EXPECT_EQ(system->firstChild(first), 0);

    raise(first);
    EXPECT_EQ(system->firstChild(parent), first);
    EXPECT_EQ(system->nextSibling(first), third);
    EXPECT_EQ(system->nextSibling(second), 0);
}

TEST_F(X11WindowSystemTest, BadHandlesAnswerZeroWithoutAnXError) {
    const WindowHandle parent = makeWindow();
    const WindowHandle child = makeWindow(parent);
    const WindowHandle gone = makeWindow();
    xcb_destroy_window(c, static_cast<xcb_window_t>(gone));
    topLevels.pop_back();

    for (WindowHandle bad : {WindowHandle{0}, gone, WindowHandle{-1}, WindowHandle{0x1ffffff0}}) {
        SCOPED_TRACE(bad);
        EXPECT_EQ(system->firstChild(bad), 0);
        EXPECT_EQ(system->nextSibling(bad), 0);
        EXPECT_EQ(system->title(bad, 14), QString());
        EXPECT_EQ(system->setParent(bad, parent), 0);
        if (bad != 0) {
            EXPECT_EQ(system->setParent(child, bad), 0);
        }
    }
    EXPECT_EQ(parentOf(child), parent);
    // The root has no parent and so no siblings.
    EXPECT_EQ(system->nextSibling(root), 0);
    EXPECT_EQ(xcb_connection_has_error(c), 0);
}

TEST_F(X11WindowSystemTest, TitleIsCutAtMaxCharacters) {
    // "ViewMGR" from the ninth character on lies beyond the 14 read.
    EXPECT_EQ(system->title(makeTitled("Display ViewMGR"), 14), "Display ViewMG");
    EXPECT_EQ(system->title(makeTitled("DisplayViewMGR window"), 14), "DisplayViewMGR");
    EXPECT_EQ(system->title(makeTitled("Host"), 14), "Host");
    EXPECT_EQ(system->title(makeTitled("Host"), 0), QString());
    EXPECT_EQ(system->title(makeWindow(), 14), QString());
    EXPECT_EQ(system->title(makeTitled("Me\xdf"
                                       "ger ViewMGR"),
                            14),
              QString::fromLatin1("Me\xdf"
                                  "ger ViewMGR"));

    // Multibyte characters still give 14 whole characters.
    const QString accented = QString::fromUtf8("Μέτρηση δείγματος ViewMGR");
    EXPECT_EQ(system->title(makeTitled(accented.toUtf8(), "UTF8_STRING"), 14), accented.left(14));
}

TEST_F(X11WindowSystemTest, OwnWidgetIsEmbeddedInAForeignWindowAndBackOut) {
    const WindowHandle host = makeTitled("Host ViewMGR");
    {
        QWidget form;
        form.setWindowTitle("Zentrovar Sidekin");
        const WindowHandle handle = windowHandleOf(form);
        const WindowHandle before = parentOf(handle);
        ASSERT_NE(before, 0);

        EXPECT_EQ(system->setParent(handle, host), before);
        EXPECT_EQ(parentOf(handle), host);
        ASSERT_NE(form.windowHandle()->parent(), nullptr);
        EXPECT_EQ(static_cast<WindowHandle>(form.windowHandle()->parent()->winId()), host);
        EXPECT_EQ(system->firstChild(host), handle);

        form.show();
        EXPECT_EQ(parentOf(handle), host);

        EXPECT_EQ(system->setParent(handle, 0), host);
        EXPECT_EQ(parentOf(handle), root);
        EXPECT_EQ(form.windowHandle()->parent(), nullptr);

        // Embedded again, then the system goes first: the widget must survive it.
        system->setParent(handle, host);
        system.reset();
        EXPECT_EQ(parentOf(handle), host);
        form.hide();
    }
}

TEST_F(X11WindowSystemTest, ForeignWindowIsReparentedDirectly) {
    const WindowHandle from = makeWindow();
    const WindowHandle to = makeWindow();
    const WindowHandle moved = makeWindow(from);

    EXPECT_EQ(system->setParent(moved, to), from);
    EXPECT_EQ(parentOf(moved), to);
    EXPECT_EQ(system->firstChild(to), moved);
    EXPECT_EQ(system->firstChild(from), 0);
}

TEST(PlatformWindowSystemTest, AnswersTheX11SystemUnderXcb) {
    if (!onX11()) GTEST_SKIP() << "needs Qt on an X display (xcb)";
    const std::unique_ptr<WindowSystem> made = makePlatformWindowSystem();
    EXPECT_NE(dynamic_cast<X11WindowSystem*>(made.get()), nullptr);
}

}  // namespace
