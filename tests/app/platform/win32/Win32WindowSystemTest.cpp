// A real window of another process as the host window: the main window goes in,
// and comes out as a top-level window when that process ends.
#include <gtest/gtest.h>
#include <windows.h>

#include <QGuiApplication>
#include <QProcess>
#include <QTest>
#include <QWidget>
#include <QWindow>

#include "platform/Screen.h"
#include "platform/Win32WindowSystem.h"

using namespace sidekin;

namespace {

// Window handles are 32-bit numbers to the program, as to the host.
WindowHandle handleOf(HWND window) {
    return static_cast<WindowHandle>(reinterpret_cast<intptr_t>(window));
}

HWND hwndOf(WindowHandle window) { return reinterpret_cast<HWND>(static_cast<intptr_t>(window)); }

HWND parentOf(QWidget& widget) {
    const HWND own = reinterpret_cast<HWND>(widget.windowHandle()->winId());
    return GetAncestor(own, GA_PARENT);
}

TEST(Win32WindowSystemTest, TheMainWindowGoesIntoAForeignWindowAndOutWhenItsProcessEnds) {
    ASSERT_EQ(QGuiApplication::platformName(), QStringLiteral("windows"));
    QProcess host;
    host.start(QStringLiteral("notepad.exe"), {});
    ASSERT_TRUE(host.waitForStarted(10000));
    Win32WindowSystem system;
    WindowHandle edit = 0;
    const auto findEdit =
        [&] {  // the search walks as the program's does; the edit box has no title
            edit = system.firstChild(handleOf(FindWindowA("Notepad", nullptr)));
            while (edit && !system.title(edit, 255).isEmpty()) edit = system.nextSibling(edit);
            return edit != 0;
        };
    ASSERT_TRUE(QTest::qWaitFor(findEdit, 20000));

    QWidget form;
    form.resize(200, 100);
    form.show();
    const WindowHandle before = system.setParent(windowHandleOf(form), edit);
    EXPECT_EQ(hwndOf(before), GetDesktopWindow());
    EXPECT_EQ(parentOf(form), hwndOf(edit));

    host.kill();
    ASSERT_TRUE(host.waitForFinished(10000));
    EXPECT_TRUE(QTest::qWaitFor([&] { return parentOf(form) == GetDesktopWindow(); }, 5000));
    EXPECT_TRUE(form.isVisible());
}

}  // namespace
