#include <gtest/gtest.h>
#include <signal.h>

#include <QDir>
#include <QProcess>
#include <QRandomGenerator>
#include <QThread>

#include "FlexGridModel.h"
#include "JournalSteps.h"
#include "RunTableFile.h"
#include "TempFolder.h"
#include "platform/SafeFile.h"

using namespace sidekin;
using sidekin::test::journalStep;

namespace {

// The table after journalStep's steps 1 to `steps`, as the journal would write it.
class Replay {
public:
    RunTableSnapshot after(int steps) {
        while (done_ < steps) journalStep(grid_, ++done_, currentRun_);
        RunTableSnapshot table = snapshotOf(grid_);
        table.currentRun = currentRun_;
        return table;
    }

private:
    FlexGrid grid_{1, 10, 1, 2};
    int done_ = 0;
    int currentRun_ = 0;
};

// Whenever the writer is killed, during edits or the walk's colours and current
// run, the journal reads whole and holds the last table written: the one of the
// last step reported, or of the step after it when its write had ended.
TEST(JournalKillTest, TheLastCompleteTableAlwaysRecovers) {
    test::TempFolder folder;
    const QString path = folder.file("state/sidekin/run-table-instrument-4.json");
    QDir().mkpath(folder.file("state/sidekin"));
    QRandomGenerator random(20261125);
    int killedAfterSteps = 0;
    for (int round = 0; round < 200; ++round) {
        QProcess child;
        child.start(QStringLiteral(JOURNAL_CHILD), {path});
        ASSERT_TRUE(child.waitForStarted(5000));
        const int wanted = random.bounded(1, 8);
        int reported = 0;
        while (reported < wanted && child.waitForReadyRead(5000))
            while (child.canReadLine()) reported = child.readLine().trimmed().toInt();
        QThread::usleep(random.bounded(3000));  // somewhere inside a later write
        ::kill(static_cast<pid_t>(child.processId()), SIGKILL);
        child.waitForFinished(5000);
        while (child.canReadLine()) reported = child.readLine().trimmed().toInt();
        ASSERT_EQ(child.exitStatus(), QProcess::CrashExit) << "round " << round;

        const RunTableFileRead read = readRunTableFile(path);
        ASSERT_EQ(read.error, RunTableFileError::None) << "round " << round;
        Replay replay;
        const RunTableSnapshot last = replay.after(reported);
        const RunTableSnapshot next = replay.after(reported + 1);
        EXPECT_TRUE(read.table->sameTable(last) || read.table->sameTable(next))
            << "round " << round << ", step " << reported;
        EXPECT_EQ(read.table->instrument, 4);
        killedAfterSteps += reported;
    }
    EXPECT_GT(killedAfterSteps, 200);
    // A later write clears the temporaries of the writers that died.
    FlexGrid grid(1, 10, 1, 2);
    FlexGridModel model(grid);
    grid.AddItem(QStringLiteral("1\tA\tB\tC\tD\tE\tF\tG\tH\tI"));
    ASSERT_TRUE(replaceFileSafely(path, encodeRunTable(snapshotOf(grid))));
    EXPECT_EQ(QDir(folder.file("state/sidekin")).entryList(QDir::Files | QDir::Hidden),
              QStringList{"run-table-instrument-4.json"});
}

}  // namespace
