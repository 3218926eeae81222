#include <gtest/gtest.h>

#include "platform/PlatformWindowSystem.h"
#include "platform/Screen.h"

using namespace sidekin;

namespace {

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
