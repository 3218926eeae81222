#include <gtest/gtest.h>

#include <QProcess>
#include <QRandomGenerator>
#include <csignal>

#include "Profile.h"
#include "TempFolder.h"

using namespace sidekin;

namespace {

// The count never moves back and a handed-out name is never reissued, whenever the process dies.
TEST(CounterKillTest, StoredCountNeverGoesBack) {
    test::TempFolder folder;
    const QByteArray others = "; lab counters\n[Operators]\nNumOperators=1\nOperator1=Ana Ruiz\n";
    const QString ini = folder.write(
        "ORQ.INI", others + "[Oil,FAME]\nDataFileNaming=PrefixCounter\nDataFile=OIL,0\n");
    QRandomGenerator random(20261122);
    int lastStored = 0;
    for (int round = 0; round < 60; ++round) {
        QProcess child;
        child.start(QStringLiteral(COUNTER_CHILD), {ini});
        ASSERT_TRUE(child.waitForStarted(5000));
        const int namesWanted = random.bounded(1, 6);
        int lastHanded = -1;
        while (lastHanded < lastStored + namesWanted - 1 && child.waitForReadyRead(5000))
            while (child.canReadLine()) lastHanded = child.readLine().trimmed().mid(3).toInt();
        ::kill(static_cast<pid_t>(child.processId()), SIGKILL);
        child.waitForFinished(5000);

        ASSERT_TRUE(folder.read("ORQ.INI").startsWith(others)) << "round " << round;
        const QString value = GetPvtProfileStr("Oil,FAME", "DataFile", ini);
        ASSERT_TRUE(value.startsWith("OIL,")) << value.toStdString();
        const int stored = value.mid(4).toInt();
        EXPECT_TRUE(stored >= lastStored && stored > lastHanded) << "round " << round;
        lastStored = stored;
    }
}

}  // namespace
