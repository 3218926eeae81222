#include <QTimer>

#include "Sleep.h"
#include "StartupFixture.h"

using namespace sidekin;
using namespace sidekin::test;

namespace {

class SleepTest : public StartupFixture {
protected:
    double secondsNow() const { return clock.moment.toMSecsSinceEpoch() / 1000.0; }
};

TEST_F(SleepTest, WaitsTheTimeAndServesEvents) {
    clock.stepPerWait = 0.05;
    bool served = false;
    QTimer::singleShot(0, [&] { served = true; });
    const double before = secondsNow();
    sidekin::sleep(0.5f);
    EXPECT_NEAR(secondsNow() - before, 0.5, 0.06);
    EXPECT_TRUE(served);
}

TEST_F(SleepTest, AcrossMidnightReturnsAfterTheTimeNotADay) {
    clock.setTime(86399.8);
    clock.stepPerWait = 0.05;
    const double before = secondsNow();
    sidekin::sleep(0.5f);
    EXPECT_NEAR(secondsNow() - before, 0.5, 0.06);
}

}  // namespace
