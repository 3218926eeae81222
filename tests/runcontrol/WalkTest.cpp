#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "AppState.h"
#include "CPLinks.h"
#include "EntryForms.h"
#include "FileNameRules.h"
#include "FlexGridView.h"
#include "FrmOrq.h"
#include "HostItems.h"
#include "Nls.h"
#include "RunTable.h"
#include "WalkFixture.h"
#include "platform/LegacyText.h"

using namespace sidekin;
using namespace sidekin::test;

namespace {

class WalkTest : public WalkFixture {
protected:
    void pausedAfterRunOne() {
        startHost();
        threeRows();
        clickStartPauseResume();
        clickStartPauseResume();
        finishRun();
        ASSERT_TRUE(waitForState(RunStatePaused));
    }
};

TEST_F(WalkTest, ThreeRowsWalkToTheEndWithTheExactCommands) {
    startHostWithQuickRuns();
    threeRows();
    frmORQ().lblStatusTime->setText("Elapsed: 3 min");
    bool startOpen = true;  // while the start talks to the host: no second start
    QTimer::singleShot(0, [&] { startOpen = frmORQ().cmdStartPauseResume->isEnabled(); });
    clickStartPauseResume();
    EXPECT_FALSE(startOpen);
    ASSERT_TRUE(waitForIdle());

    const QString operatorName = frmORQ().cboOperator->currentText();
    const QString checkedFile = App.GlblOrqDir + "Batch7";
    EXPECT_EQ(
        host->executed(),
        (QStringList{
            "ORQNameCheck=0;On Error ORQNameCheck=1;Open \"" + checkedFile +
                "\" For Output As #3; On Error",
            "Close #3", "Delete \"" + checkedFile + "\",DontAsk",
            "ORQ_SetRunTableVars \"" + operatorName + "\", \"Batch7\"",
            R"(ORQ_PrepareSingleRun "FRONTSTD", 1, "S-RunA", 105, "RunA", "1.5", "", "", "", "")",
            "ORQ_HOST_START 1",
            R"(ORQ_PrepareSingleRun "BACKSTD", 2, "S-RunB", 207, "RunB", "1.5", "", "", "", "note")",
            "ORQ_HOST_START 2",
            R"(ORQ_PrepareSingleRun "FRONTFAST", 1, "S-RunC", , "RunC", "1.5", "", "", "", "")",
            "ORQ_HOST_START 3"}));
    EXPECT_EQ(App.GlblCurrentRun, 0);
    for (int row = 1; row <= 3; ++row) EXPECT_EQ(rowColour(row), RnTblColorCompleted) << row;
    EXPECT_EQ(currentRunText(), text(17102));
    EXPECT_TRUE(frmORQ().lblStatusTime->text().isEmpty());
    EXPECT_EQ(startButton(), startButton(17016, 17144));
    EXPECT_FALSE(frmORQ().cmdStop->isEnabled());
    EXPECT_TRUE(frmORQ().cmdRnTblAdd->isEnabled());
    EXPECT_TRUE(QDir(host->dataFolder() + "Batch7/RunC.d").exists());
}

// The operator's clicks take nothing from the feed: each item the host changes
// after a click in any form reaches its box, and a walk started after one ends.
TEST_F(WalkTest, ItemsArriveAfterClicksInEveryForm) {
    startHostWithQuickRuns();
    threeRows();
    CPLinks& links = cpLinks();
    const std::pair<QString, QLineEdit*> boxes[] = {
        {items::DataPath, links.txtDataPath},     {items::InstPath, links.txtInstPath},
        {items::MethPath, links.txtMethPath},     {items::SystemStatus, links.ddeSystemStatus},
        {items::StatusTime, links.ddeStatusTime}, {items::RunEngine, links.ddeRunEngineStatus}};
    QWidget* grid = frmORQ().fgrdRunTable->viewport();
    const std::pair<QWidget*, QWidget*> clicks[] = {{&frmORQ(), grid},
                                                    {&frmRnTblAdd(), frmRnTblAdd().txtSampleID},
                                                    {&frmRnTblEdit(), frmRnTblEdit().txtSampleID}};
    for (auto [form, target] : clicks) {
        form->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(form));
        QTest::mouseClick(target, Qt::LeftButton, {}, QPoint(20, 10));
        const QString round = form->objectName();
        QStringList values;
        for (const auto& [item, box] : boxes) {
            // Folders stay where they are: only the file part changes.
            values << (box->text().left(box->text().lastIndexOf('/') + 1) + round);
            host->simulator().publish(item, values.back());
        }
        EXPECT_TRUE(waitUntil([&] {
            for (int i = 0; i < 6; ++i)
                if (!boxes[i].second->text().startsWith(values[i] + "\r\n")) return false;
            return true;
        })) << round.toStdString();
        if (form != &frmORQ()) form->hide();
    }
    QTest::mouseClick(grid, Qt::LeftButton, {}, QPoint(20, 10));
    clickStartPauseResume();
    ASSERT_TRUE(waitForIdle());
    EXPECT_EQ(hostStarts(), 3);
}

TEST_F(WalkTest, OneManualRowSendsVialZeroAndEndsTheWalk) {
    startHostWithQuickRuns();
    addRun("MANUAL", 17048, text(17041), "Hand");
    clickStartPauseResume();
    ASSERT_TRUE(waitForIdle());
    EXPECT_TRUE(host->executed().contains(
        R"(ORQ_PrepareSingleRun "MANUAL", 2, "S-Hand", 0, "Hand", "1.5", "", "", "", "")"));
}

TEST_F(WalkTest, PauseHoldsAfterTheRunAndResumeSendsTheNext) {
    startHost();
    threeRows();
    clickStartPauseResume();
    ASSERT_EQ(App.GlblRunState, RunStateRunning);
    clickStartPauseResume();  // Pause, then Resume before run 1 ends: nothing changes
    EXPECT_EQ(App.GlblRunState, RunStatePausing);
    EXPECT_EQ(startButton(), startButton(17018, 17146));
    EXPECT_EQ(currentRunText(), text(17105) + "1");
    clickStartPauseResume();
    EXPECT_EQ(App.GlblRunState, RunStateRunning);
    EXPECT_EQ(startButton(), startButton(17017, 17145));
    clickStartPauseResume();  // Pause again: held after run 1, as the main-paused pictures show
    finishRun();
    ASSERT_TRUE(waitForState(RunStatePaused));
    EXPECT_EQ(App.GlblCurrentRun, 1);
    EXPECT_EQ(hostStarts(), 1);

    clickStartPauseResume();  // Resume
    EXPECT_EQ(App.GlblCurrentRun, 2);
    EXPECT_EQ(currentRunText(), text(17101) + "2");
    EXPECT_EQ(hostStarts(), 2);
    EXPECT_EQ(startButton(), startButton(17017, 17145));
}

TEST_F(WalkTest, PausedWithTheRemainingRowsDeletedResumeEndsTheWalk) {
    pausedAfterRunOne();
    FlexGrid& grid = frmORQ().fgrdRunTable->grid();
    for (int row : {3, 2}) {
        grid.setRowSel(row);
        frmORQ().cmdRnTblDel->click();
    }
    frmORQ().lblStatusTime->setText("Elapsed: 3 min");
    clickStartPauseResume();
    EXPECT_EQ(App.GlblRunState, RunStateIdle);
    EXPECT_EQ(currentRunText(), text(17102));
    EXPECT_TRUE(frmORQ().lblStatusTime->text().isEmpty());
    EXPECT_EQ(hostStarts(), 1);
}

TEST_F(WalkTest, StopWhileRunningEndsAfterTheRun) {
    startHost();
    threeRows();
    clickStartPauseResume();
    clickStop();
    EXPECT_EQ(App.GlblRunState, RunStateStopping);
    EXPECT_EQ(currentRunText(), text(17103) + "1");
    EXPECT_FALSE(frmORQ().cmdStartPauseResume->isEnabled());
    EXPECT_EQ(frmORQ().cmdStartPauseResume->toolTip(), text(17016));
    finishRun();
    ASSERT_TRUE(waitForIdle());
    EXPECT_EQ(currentRunText(), text(17104) + "1");
    EXPECT_EQ(rowColour(1), RnTblColorCompleted);
    EXPECT_NE(rowColour(2), RnTblColorCompleted);
    EXPECT_EQ(frmORQ().cmdStartPauseResume->toolTip(), text(17144));
    EXPECT_EQ(hostStarts(), 1);
}

TEST_F(WalkTest, StopWhilePausedIsIdleAtOnce) {
    pausedAfterRunOne();
    clickStop();
    EXPECT_EQ(App.GlblRunState, RunStateIdle);
    EXPECT_EQ(App.GlblCurrentRun, 0);
    EXPECT_EQ(currentRunText(), text(17104) + "1");
    EXPECT_EQ(startButton(), startButton(17016, 17144));
}

// The road test's trainer ends a run "Aborted"; the host may also spell it in capitals.
TEST_F(WalkTest, AbortedRunEndsTheWalk) {
    hostsim::SimConfig config = InProcessHost::defaultConfig();
    config.runSeconds = 0;
    config.faults.abortRuns = {2};
    config.faults.abortWord = "ABORTED";
    startHost(config);
    threeRows();
    clickStartPauseResume();
    ASSERT_TRUE(waitForIdle());
    EXPECT_EQ(rowColour(1), RnTblColorCompleted);
    EXPECT_EQ(rowColour(2), RnTblColorAborted);
    EXPECT_EQ(currentRunText(), text(17107) + "2");
    EXPECT_EQ(hostStarts(), 2);
}

TEST_F(WalkTest, ExistingDataFilesAskFirst) {
    startHostWithQuickRuns();
    threeRows();
    QDir().mkpath(host->dataFolder() + "Batch7/RunB.d");

    dialogs.answerBox(BoxAnswer::Yes);  // give up the start
    clickStartPauseResume();
    EXPECT_EQ(App.GlblRunState, RunStateIdle);
    ASSERT_EQ(dialogs.shown.size(), 1u);
    EXPECT_EQ(dialogs.shown[0].style, BoxStyle::ExclamationYesNo);
    EXPECT_TRUE(dialogs.shown[0].text.contains("     Run: 2   Data File Name: RunB\r"));
    EXPECT_EQ(rowColour(2), RnTblColorFileExists);
    EXPECT_TRUE(frmORQ().cmdStartPauseResume->isEnabled());
    EXPECT_TRUE(host->executed().filter("ORQ_").isEmpty());

    // The data folder grows by one level per check, as it always did: refresh it.
    App.GlblDataDir = host->dataFolder();
    dialogs.answerBox(BoxAnswer::No);  // start all the same
    clickStartPauseResume();
    EXPECT_NE(rowColour(2), RnTblColorFileExists);
    ASSERT_TRUE(waitForIdle());
    EXPECT_EQ(hostStarts(), 3);
}

TEST_F(WalkTest, UnknownInjectorIsToldAndRunsAsTheFront) {
    startHostWithQuickRuns();
    addRun("NOSUCH", 17044, "4", "Lost");
    clickStartPauseResume();
    ASSERT_TRUE(waitForIdle());
    EXPECT_EQ(
        dialogs.shown,
        (std::vector<Shown>{{Shown::Box, BoxStyle::ExclamationOk, text(17216), text(17266)}}));
    EXPECT_TRUE(host->executed().contains(
        R"(ORQ_PrepareSingleRun "NOSUCH", 1, "S-Lost", 104, "Lost", "1.5", "", "", "", "")"));
}

TEST_F(WalkTest, TwoInjectorMethodSendsNothingAndTheWalkStands) {
    startHostWithQuickRuns();
    addRun("DUALINJ", 17044, "4", "Both");
    clickStartPauseResume();
    EXPECT_EQ(App.GlblRunState, RunStateRunning);
    ASSERT_EQ(dialogs.shown.size(), 1u);
    EXPECT_EQ(dialogs.shown[0].text, ReplaceString(text(17218), "<NAME>", "DUALINJ"));
    EXPECT_TRUE(host->executed().filter("ORQ_PrepareSingleRun").isEmpty());
    EXPECT_TRUE(host->executed().filter("ORQ_HOST_START").isEmpty());
}

TEST_F(WalkTest, InvalidSubdirectoryKeepsTheTableIdle) {
    startHostWithQuickRuns();
    threeRows();
    QDir(App.GlblOrqDir).mkdir("BUSY");  // the host cannot create a file of this name
    frmORQ().txtSubDir->setText("BUSY");
    clickStartPauseResume();
    EXPECT_EQ(App.GlblRunState, RunStateIdle);
    EXPECT_EQ(dialogs.boxTitles(), QStringList{text(17260)});
    EXPECT_EQ(dialogs.shown[0].text, text(17205));
    EXPECT_TRUE(frmORQ().cmdStartPauseResume->isEnabled());
    EXPECT_EQ(frmORQ().txtSubDir->selectedText(), "BUSY");
    EXPECT_EQ(hostStarts(), 0);
}

TEST_F(WalkTest, JapaneseWalkPausesAndResumesOnItsOwnCaptions) {
    setNlsLanguage("ja");
    ASSERT_EQ(NLSInit(0), 1);
    ASSERT_NE(text(17017), englishText(17017));
    pausedAfterRunOne();  // its captions: the main-paused-ja picture
    EXPECT_EQ(startButton(), startButton(17018, 17146));
    clickStartPauseResume();
    EXPECT_EQ(App.GlblRunState, RunStateRunning);
    EXPECT_EQ(App.GlblCurrentRun, 2);
    EXPECT_TRUE(dialogs.shown.empty());
}

}  // namespace
