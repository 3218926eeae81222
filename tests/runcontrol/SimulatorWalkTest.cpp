// The walk against the host simulator as a separate process, in real time.
#include <QColor>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPalette>

#include "CPLinks.h"
#include "FrmOrq.h"
#include "RunTableColumns.h"
#include "SimulatorProcess.h"
#include "WalkFixture.h"

using namespace sidekin;
using namespace sidekin::test;

namespace {

class SimulatorWalkTest : public WalkFixture {
protected:
    void SetUp() override {
        WalkFixture::SetUp();
        setClock(nullptr);
    }
    void TearDown() override {
        WalkFixture::TearDown();
        simulator.reset();
    }
    std::unique_ptr<SimulatorProcess> simulator;
};

TEST_F(SimulatorWalkTest, CommandsReachTheHostAndItsStatusReachesTheLabels) {
    simulator = std::make_unique<SimulatorProcess>(QStringList{"--run-seconds", "1.5"});
    ASSERT_TRUE(simulator->started());
    connectProgram(simulator->service(), simulator->configFolder());
    addRun("BACKSTD", 17045, "7", "Timed", "note");
    QLabel& time = *frmORQ().lblStatusTime;
    QLabel& ready = *frmORQ().lblSysStatusReady;
    EXPECT_EQ(ready.text(), "Ready");
    simulator->control("set GUIStatusTime$ Elapsed|0.5|min");
    ASSERT_TRUE(waitUntil([] { return cpLinks().ddeStatusTime->text().contains("0.5"); }));
    EXPECT_TRUE(time.text().isEmpty());  // standing still while idle

    clickStartPauseResume();
    // The host's line end stays behind the last field's text, as it always did.
    EXPECT_TRUE(waitUntil(
        [&] { return ready.text() == "Run in Progress" && time.text() == "Elapsed: 0.0 min\r\n"; },
        1500));
    EXPECT_EQ(ready.palette().color(QPalette::Window), QColor(255, 255, 0));  // SysYellow
    ASSERT_TRUE(waitForIdle());
    EXPECT_EQ(ready.text(), "Ready");
    EXPECT_TRUE(time.text().isEmpty());  // the walk's end clears it
    EXPECT_EQ(rowColour(1), RnTblColorCompleted);

    QStringList commands;
    for (const QString& c : simulator->executed()) commands << c.section(QLatin1Char('\t'), 1);
    EXPECT_EQ(
        commands.filter("ORQ_"),
        (QStringList{
            "ORQ_SetRunTableVars \"" + frmORQ().cboOperator->currentText() + "\", \"Batch7\"",
            R"(ORQ_PrepareSingleRun "BACKSTD", 2, "S-Timed", 207, "Timed", "1.5", "", "", "", "note")",
            "ORQ_HOST_START 1"}));
}

}  // namespace
