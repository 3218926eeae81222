#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QTimer>
#include <csignal>

#include "AppState.h"
#include "Counters.h"
#include "G11n.h"
#include "Profile.h"
#include "Sleep.h"
#include "StartupFixture.h"
#include "platform/ProfileFile.h"
#include "platform/RuntimeError.h"

using namespace sidekin;
using namespace sidekin::test;

namespace {

class NamingTest : public StartupFixture {
protected:
    // nullptr: no DataFile key at all.
    void store(const char* dataFile, const QByteArray& naming = "PrefixCounter") {
        const QByteArray key = dataFile ? "DataFile=" + QByteArray(dataFile) + "\r\n" : "";
        App.GlblIniFile = config.write("ORQ.INI", "[Oil,FAME]\r\nDataFileNaming=" + naming +
                                                      "\r\n" + key + "[Other]\r\nKey=kept\r\n");
    }
    QString stored() const { return GetPvtProfileStr("Oil,FAME", "DataFile", App.GlblIniFile); }
    QString take(const QString& field = {}) { return GetNextFileName(field, "Oil", "FAME"); }
    QString peek() { return PeekNextFileName("Oil", "FAME"); }
};

TEST_F(NamingTest, NameWidthFollowsThePrefixLength) {
    const std::tuple<const char*, const char*, std::int32_t> cases[] = {
        {"ABCDEFGHI,5", "ABCDEFGHI000005", 1000000},
        {"ABCDEFGHIJ,5", "ABCDEFGHIJ00005", 100000},
        {"ABCDEFGHIJKLMN,7", "ABCDEFGHIJKLMN7", 10},
        {"ABCDEFGHIJKLMNO,0", "ABCDEFGHIJKLMNO0", 1},
        {"ABCDEFGHIJKL,1000", "ABCDEFGHIJKL1000", 1000},
        {" ABC , 17 ", "ABC000017", 1000000},
        {"ABCDEFGHIJ  ,3", "ABCDEFGHIJ00003", 1000},  // the limit counts the blanks
        {nullptr, "000000", 1000000},
    };
    for (auto [dataFile, name, countMax] : cases) {
        store(dataFile);
        EXPECT_EQ(peek(), name) << dataFile;
        EXPECT_EQ(GetDataFileCountMax("Oil", "FAME"), countMax) << dataFile;
    }
    EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(NamingTest, PeeksGiveTheNameTheTakeThenUsesUnlessManual) {
    store("OIL, 41");
    const QByteArray before = config.read("ORQ.INI");
    EXPECT_EQ(peek(), "OIL000041");
    EXPECT_EQ(config.read("ORQ.INI"), before);
    EXPECT_EQ(take(), "OIL000041");
    EXPECT_EQ(take(), "OIL000042");
    EXPECT_EQ(stored(), "OIL,43");
    EXPECT_EQ(GetPvtProfileStr("Other", "Key", App.GlblIniFile), "kept");
    store("OIL,41", "Manual");  // the field's text comes back and nothing is written
    const QByteArray manual = config.read("ORQ.INI");
    EXPECT_EQ(take("MyRun"), "MyRun");
    EXPECT_EQ(config.read("ORQ.INI"), manual);
}

TEST_F(NamingTest, CountsAtTheLimitAndUnusableValues) {
    const std::tuple<const char*, const char*, QStringList, int> cases[] = {
        {"OIL,32767", "OIL032767", {"GetNextFileName"}, ErrOverflow},  // the last name again
        {"OIL,32768", "", {"PeekNextFileName", "GetNextFileName"}, ErrOverflow},
        {"ABCDEFGHIJKLMNOP,1", "", {"PeekNextFileName", "GetNextFileName"}, ErrInvalidCall},
    };
    for (const auto& [dataFile, name, boxes, error] : cases) {
        store(dataFile);
        dialogs.shown.clear();
        EXPECT_EQ(peek(), name) << dataFile;
        EXPECT_EQ(take(), name) << dataFile;
        EXPECT_EQ(stored(), dataFile);
        EXPECT_EQ(dialogs.boxTitles(), boxes) << dataFile;
        EXPECT_EQ(dialogs.shown.at(0).text, errorDescription(error)) << dataFile;
    }
    EXPECT_EQ(GetDataFileCountMax("Oil", "FAME"), 0);
}

TEST_F(NamingTest, FailedWriteWarnsAndTheSameNameComesBack) {
    store("OIL,5");
    QFile::setPermissions(App.GlblIniFile, QFile::ReadOwner | QFile::ReadGroup);
    EXPECT_EQ(take(), "OIL000005");
    EXPECT_EQ(take(), "OIL000005");
    EXPECT_EQ(dialogs.shown,
              std::vector<Shown>(2, Shown{Shown::Box, BoxStyle::ExclamationOk,
                                          GetResourceString(17222), GetResourceString(17267)}));
    EXPECT_EQ(stored(), "OIL,5");
}

TEST_F(NamingTest, SleepWaitsTheTimeAcrossMidnightAndServesEvents) {
    clock.setTime(86399.8);
    clock.stepPerWait = 0.05;
    bool served = false;
    QTimer::singleShot(0, [&] { served = true; });
    const qint64 before = clock.moment.toMSecsSinceEpoch();
    sidekin::sleep(0.5f);
    EXPECT_NEAR(clock.moment.toMSecsSinceEpoch() - before, 500, 60) << "the time, not a day";
    EXPECT_TRUE(served);
}

// Whenever the process dies: the bytes around the count stay whole, the count never moves
// back, a handed-out name is never reissued, and a later write clears the dead temporaries.
TEST(CounterKillTest, StoredCountNeverGoesBack) {
    test::TempFolder folder;
    const QByteArray head =
        "; lab counters\r\n[Operators]\r\nNumOperators=1\r\nOperator1=Ana Ruiz\r\n"
        "[Oil,FAME]\r\nDataFileNaming=PrefixCounter\r\n";
    const QByteArray tail = "InfoLine=  run ; blank  \r\n[System]\r\nDataSubDirMode=Manual\r\n";
    const QString ini = folder.write("ORQ.INI", head + "DataFile=OIL,0\r\n" + tail);
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

        const QByteArray bytes = folder.read("ORQ.INI");
        ASSERT_TRUE(bytes.startsWith(head) && bytes.endsWith(tail)) << "round " << round;
        const QString value = GetPvtProfileStr("Oil,FAME", "DataFile", ini);
        ASSERT_TRUE(value.startsWith("OIL,")) << value.toStdString();
        const int stored = value.mid(4).toInt();
        EXPECT_TRUE(stored >= lastStored && stored > lastHanded) << "round " << round;
        lastStored = stored;
    }
    ASSERT_EQ(WritePrivateProfileStringA("Oil,FAME", "DataFile", "OIL,0", ini), 1);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{"ORQ.INI"});
}

}  // namespace
