#include <gtest/gtest.h>

#include <QGuiApplication>

#include "platform/PlatformWindowSystem.h"
#include "platform/Screen.h"

using namespace sidekin;

namespace {

// Offscreen the logical DPI is 96: 15 twips per pixel, the legacy reference.
TEST(ScreenTest, OffscreenHasFifteenTwipsPerPixel) {
    ASSERT_EQ(QGuiApplication::platformName(), "offscreen");
    EXPECT_EQ(TwipsPerPixelX(), 15.0f);
    EXPECT_EQ(TwipsPerPixelY(), 15.0f);
}

TEST(ScreenTest, TwipsRoundToTheNearestPixel) {
    struct Row {
        double twips;
        int pixels;
    };
    for (const Row& row : {Row{1200, 80}, Row{11025, 735}, Row{7, 0}, Row{8, 1}, Row{22, 1},
                           Row{23, 2}, Row{-8, -1}, Row{0, 0}}) {
        SCOPED_TRACE(row.twips);
        EXPECT_EQ(twipsToPixelsX(row.twips), row.pixels);
        EXPECT_EQ(twipsToPixelsY(row.twips), row.pixels);
    }
}

TEST(PlatformWindowSystemTest, OffscreenGivesTheNullSystem) {
    const std::unique_ptr<WindowSystem> made = makePlatformWindowSystem();
    ASSERT_NE(dynamic_cast<NullWindowSystem*>(made.get()), nullptr);
}

}  // namespace
