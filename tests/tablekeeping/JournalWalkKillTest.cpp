#include <signal.h>

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QRandomGenerator>
#include <QThread>
#include <cstdio>

#include "AppState.h"
#include "FlexGridView.h"
#include "FrmOrq.h"
#include "G11n.h"
#include "RunTable.h"
#include "TableJournal.h"
#include "TableKeeping.h"
#include "WalkFixture.h"

using namespace sidekin;
using namespace sidekin::test;

namespace {

QByteArray hashOf(const QByteArray& bytes) {
    return QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex();
}

// Not run by itself: the kill test below starts this test binary with this case
// alone. It walks three-row tables to their end, one after another, with the
// journal on, printing "about HASH" before each journal write and "wrote HASH"
// once it is done, until it is killed.
class JournalWalkChild : public WalkFixture {};

TEST_F(JournalWalkChild, DISABLED_WalksForEver) {
    startHostWithQuickRuns();
    startTableJournal();
    tableJournal()->watcher = [](const QByteArray& bytes, bool done) {
        std::printf("%s %s\n", done ? "wrote" : "about", hashOf(bytes).constData());
        std::fflush(stdout);
    };
    for (int walk = 1;; ++walk) {
        // New data file names each time: Start refuses files that exist.
        const QString n = QString::number(walk);
        addRun("FRONTSTD", 17044, "5", "RunA" + n);
        addRun("BACKSTD", 17045, "7", "RunB" + n, "note");
        addRun("FRONTFAST", 17044, GetResourceString(17042), "RunC" + n);
        frmORQ().cmdStartPauseResume->setEnabled(true);  // as the fixture's first table
        clickStartPauseResume();
        ASSERT_TRUE(waitForIdle());
        ClearRunTable(frmORQ());
    }
}

// kill -9 at random moments of walks: the journal always reads whole and holds
// the table of the last write that ended, or of the one under way.
TEST(JournalWalkKillTest, TheLastCompleteTableAlwaysRecovers) {
    TempFolder state;
    const QString journal = state.file("sidekin/run-table-instrument-1.json");
    QRandomGenerator random(20261126);
    int writes = 0;
    for (int round = 0; round < 200; ++round) {
        QProcess child;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("XDG_STATE_HOME", state.path());
        child.setProcessEnvironment(environment);
        child.start(QCoreApplication::applicationFilePath(),
                    {"--gtest_filter=JournalWalkChild.DISABLED_WalksForEver",
                     "--gtest_also_run_disabled_tests"});
        ASSERT_TRUE(child.waitForStarted(5000));
        const int wanted = random.bounded(1, 12);
        QByteArray wrote, about;
        int seen = 0;
        const auto take = [&] {
            while (child.canReadLine()) {
                const QByteArray line = child.readLine().trimmed();
                if (line.startsWith("about ")) about = line.mid(6);
                if (line.startsWith("wrote ")) wrote = line.mid(6), ++seen;
            }
        };
        while (seen < wanted && child.waitForReadyRead(10000)) take();
        QThread::usleep(random.bounded(20000));
        ::kill(static_cast<pid_t>(child.processId()), SIGKILL);
        child.waitForFinished(5000);
        take();
        ASSERT_EQ(child.exitStatus(), QProcess::CrashExit) << "round " << round;
        ASSERT_FALSE(wrote.isEmpty()) << "round " << round;

        QFile file(journal);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << "round " << round;
        const QByteArray bytes = file.readAll();
        ASSERT_EQ(decodeRunTable(bytes).error, RunTableFileError::None) << "round " << round;
        const QByteArray found = hashOf(bytes);
        EXPECT_TRUE(found == wrote || found == about) << "round " << round;
        writes += seen;
    }
    EXPECT_GT(writes, 200);
}

}  // namespace
