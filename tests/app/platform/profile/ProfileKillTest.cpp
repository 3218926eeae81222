#include <gtest/gtest.h>

#include <QDir>
#include <QProcess>
#include <QRandomGenerator>
#include <QRegularExpression>

#include "TempFolder.h"
#include "platform/ProfileFile.h"

using sidekin::test::TempFolder;

namespace {

const QByteArray kHead =
    "; lab settings\r\n[Operators]\r\nNumOperators=1\r\nOperator1=Ana Ruiz\r\n\r\n"
    "[Diesel,FAME_FAST]\r\nDataFileNaming=PrefixCounter\r\n";
const QByteArray kTail = "InfoLine=  run ; blank  \r\n[System]\r\nDataSubDirMode=Manual\r\n";

// The counter taken from the file, or -1 when anything but its line differs.
qint64 counterIn(const QByteArray& bytes) {
    static const QRegularExpression line("^DataFile=OIL,(\\d+)\r\n$");
    if (!bytes.startsWith(kHead) || !bytes.endsWith(kTail)) return -1;
    const auto match = line.match(
        QString::fromLatin1(bytes.mid(kHead.size(), bytes.size() - kHead.size() - kTail.size())));
    return match.hasMatch() ? match.captured(1).toLongLong() : -1;
}

TEST(ProfileKill, CounterSurvivesKillsAtRandomMoments) {
    TempFolder dir;
    const QString path = dir.write("ORQ.INI", kHead + "DataFile=OIL,0\r\n" + kTail);
    QRandomGenerator random(20240611);  // fixed seed: a failure replays
    qint64 counter = 0;
    for (int round = 0; round < 100; ++round) {
        QProcess child;
        child.start(PROFILE_WRITE_CHILD, {path});
        ASSERT_TRUE(child.waitForStarted());
        // Kill it after a random number of finished writes, in the middle of the next ones.
        const int writes = random.bounded(10);
        qint64 reported = 0;
        for (int seen = 0; seen < writes && child.waitForReadyRead(5000);) {
            while (child.canReadLine()) {
                reported = child.readLine().trimmed().toLongLong();
                ++seen;
            }
        }
        child.kill();
        ASSERT_TRUE(child.waitForFinished(5000));
        ASSERT_EQ(child.exitStatus(), QProcess::CrashExit) << "round " << round;

        const qint64 now = counterIn(dir.read("ORQ.INI"));
        ASSERT_GE(now, counter) << "round " << round << ": torn or older file";
        ASSERT_GE(now, reported) << "round " << round << ": a finished write got lost";
        QString value;
        ASSERT_EQ(
            sidekin::GetPrivateProfileStringA("DIESEL,FAME_FAST", "datafile", "", value, 256, path),
            QString("OIL,%1").arg(now).size());
        counter = now;
    }
    EXPECT_GT(counter, 100);

    ASSERT_EQ(sidekin::WritePrivateProfileStringA("Diesel,FAME_FAST", "DataFile", "OIL,0", path),
              1);
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden), QStringList({"ORQ.INI"}));
}

}  // namespace
