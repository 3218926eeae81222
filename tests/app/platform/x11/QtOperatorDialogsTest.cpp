#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <functional>

#include "platform/PlatformWindowSystem.h"
#include "platform/QtOperatorDialogs.h"
#include "platform/Screen.h"

using namespace sidekin;

namespace {

// Acts on the next modal widget of type W as soon as it is up.
template <typename W>
void whenModal(std::function<void(W&)> act) {
    QTimer::singleShot(10, [act] {
        if (auto* widget = qobject_cast<W*>(QApplication::activeModalWidget()))
            act(*widget);
        else
            whenModal<W>(act);
    });
}

TEST(QtOperatorDialogsTest, MessageBoxShowsTheStyleAndMapsTheAnswer) {
    const struct {
        const char* name;
        BoxStyle style;
        QMessageBox::Icon icon;
        QMessageBox::StandardButton press;  // NoButton: the operator presses Escape
        BoxAnswer answer;
    } rows[] = {
        {"plain", BoxStyle::Plain, QMessageBox::NoIcon, QMessageBox::Ok, BoxAnswer::Ok},
        {"no", BoxStyle::ExclamationYesNo, QMessageBox::Warning, QMessageBox::No, BoxAnswer::No},
        {"yes", BoxStyle::ExclamationYesNo, QMessageBox::Warning, QMessageBox::Yes, BoxAnswer::Yes},
        {"escape", BoxStyle::ExclamationYesNo, QMessageBox::Warning, QMessageBox::NoButton,
         BoxAnswer::No},
        {"fatal", BoxStyle::Critical, QMessageBox::Critical, QMessageBox::Ok, BoxAnswer::Ok},
    };
    QtOperatorDialogs dialogs;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        whenModal<QMessageBox>([&row](QMessageBox& box) {
            EXPECT_EQ(box.windowTitle(), "Run <1>");
            EXPECT_EQ(box.text(), "Delete <b>all</b> rows?");
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            EXPECT_EQ(box.icon(), row.icon);
            if (row.press == QMessageBox::NoButton)
                QTest::keyClick(&box, Qt::Key_Escape);
            else
                box.button(row.press)->click();
        });
        EXPECT_EQ(dialogs.messageBox(row.style, "Delete <b>all</b> rows?", "Run <1>"), row.answer);
    }
}

// Offscreen the logical DPI is 96: 15 twips per pixel, the legacy reference.
TEST(ScreenTest, TwipsRoundToTheNearestPixel) {
    const std::pair<double, int> rows[] = {{1200, 80}, {11025, 735}, {7, 0},   {8, 1},
                                           {22, 1},    {23, 2},      {-8, -1}, {0, 0}};
    for (auto [twips, pixels] : rows) {
        EXPECT_EQ(twipsToPixelsX(twips), pixels) << twips;
        EXPECT_EQ(twipsToPixelsY(twips), pixels) << twips;
    }
    EXPECT_NE(dynamic_cast<NullWindowSystem*>(makePlatformWindowSystem().get()), nullptr);
}

}  // namespace
