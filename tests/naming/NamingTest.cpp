#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QProcess>
#include <QRandomGenerator>
#include <QSignalBlocker>
#include <QTimer>
#include <csignal>

#include "AppState.h"
#include "Counters.h"
#include "DataFileCheck.h"
#include "FileNameRules.h"
#include "FlexGridView.h"
#include "FormsFixture.h"
#include "FrmOrq.h"
#include "G11n.h"
#include "Profile.h"
#include "RunTable.h"
#include "Sleep.h"
#include "SubDirectory.h"
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

const QString forty(40, u'a');

using FileNameTest = FormsFixture;

TEST_F(FileNameTest, CharacterRulesJudgeAndCutTheName) {
    const std::tuple<const char*, QString, bool, QString> cases[] = {
        {"letters, digits, punctuation", "azAZ09_-^$~!#&{}@`'()", true, "azAZ09_-^$~!#&{}@`'()"},
        {"empty", "", true, ""},
        {"forty pass", forty, true, forty},
        {"forty-one fail untouched", forty + "b", false, forty + "b"},
        {"leading blanks dropped silently", "  abc", true, "abc"},
        {"forty after a blank is too long", " " + forty, false, " " + forty},
        {"blank between letters cuts", "a b", false, "a"},
        {"leading dot empties", ".abc", false, ""},
        {"extension cut", "run.d", false, "run"},
        {"no letters beyond ASCII", QString::fromUtf8("Prüfung"), false, "Pr"},
    };
    for (auto [name, input, valid, after] : cases) {
        EXPECT_EQ(IsValidFileChar(input), valid) << name;
        EXPECT_EQ(input, after) << name;
    }
    EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(FileNameTest, NamesRefusedBeforeAskingTheHost) {
    for (QString name : {QString(), QString("   "), forty + "x", QString("a b")})
        EXPECT_FALSE(IsValidFileName(name)) << name.toStdString();
    EXPECT_TRUE(dialogs.shown.empty());  // no host was asked, so no link error either
    QString name = " " + forty + " x";
    EXPECT_FALSE(IsValidFileName(name));
    EXPECT_EQ(name, forty + " x") << "the trimming reaches the caller's variable";
}

TEST_F(FileNameTest, ReturnMovesTheFocusOnButOtherKeysPass) {
    QWidget form;
    auto* first = new QLineEdit(&form);
    auto* second = new QLineEdit(&form);
    form.show();
    QApplication::setActiveWindow(&form);
    first->setFocus();
    for (auto [key, after, focused] :
         {std::tuple<std::int16_t, std::int16_t, QWidget*>{65, 65, first}, {13, 0, second}}) {
        ConvReturn2Tab(key);
        QApplication::processEvents();
        EXPECT_EQ(key, after);
        EXPECT_EQ(QApplication::focusWidget(), focused) << after;
    }
}

TEST_F(FileNameTest, UniqueToTableComparesWholeNamesAndIgSelRowSkipsTheSelectedRow) {
    FlexGrid& grid = frmORQ().fgrdRunTable->grid();
    grid.setRows(1);
    EXPECT_TRUE(FileNameUniqueToTable("RunA", "None")) << "an empty table";
    for (const char* name : {"RunA", "RunB", "RunC", "runb", ""})
        grid.AddItem(QStringLiteral("0\tOil\tFAME\tS\tT\t1\t") + name);
    SelectRunTableRow(grid, 3);
    const std::tuple<const char*, const char*, bool> cases[] = {
        {"RunB", "None", false},    {"runb", "None", false},     {"RUNB", "None", true},
        {"Run", "None", true},      {"", "None", false},         {"RunC", "None", false},
        {"RunC", "IgSelRow", true}, {"runb", "IgSelRow", false},
    };
    for (const auto& [name, mode, unique] : cases)
        EXPECT_EQ(FileNameUniqueToTable(name, mode), unique) << name << " " << mode;
}

TEST_F(FileNameTest, DataFileExitsReportsMarksAndSelectsTheComingRows) {
    FlexGrid& grid = frmORQ().fgrdRunTable->grid();
    const QString data = config.path() + "/data/";
    App.GlblDataDir = data;
    frmORQ().txtSubDir->setText("Sub");
    for (const char* name : {"RunA", "RunB", "RunC"}) {
        grid.AddItem(QStringLiteral("0\tOil\tFAME\tS\tT\t1\t") + name);
        QDir().mkpath(data + "Sub/" + name + ".d");
    }
    App.GlblCurrentRun = 1;  // rows up to the current run are left alone
    SelectRunTableRow(grid, 1);
    EXPECT_EQ(DataFileExits(),
              "     Run: 2   Data File Name: RunB\r     Run: 3   Data File Name: RunC\r");
    EXPECT_EQ(
        std::tuple(grid.cellBackColor(1, 0), grid.cellBackColor(2, 0), grid.cellBackColor(3, 1),
                   grid.cellBackColor(3, 2)),
        std::tuple(GridDefaultColor, RnTblColorFileExists, RnTblColorFileExists, GridDefaultColor));
    EXPECT_EQ(grid.RowSel(), 3) << "a selection on row 1 is not given back";
    // Each call adds the sub folder once more: now it looks in Sub\Sub\ .
    SelectRunTableRow(grid, 2);
    EXPECT_EQ(DataFileExits(), "");
    EXPECT_EQ(App.GlblDataDir, data + "Sub\\Sub\\");
    EXPECT_EQ(grid.cellBackColor(3, 0), RnTblColorNone);  // the mark goes with the file
    EXPECT_EQ(std::pair(grid.RowSel(), grid.Col()), std::pair(2, 2));
    EXPECT_TRUE(dialogs.shown.empty());
}

class SubDirectoryTest : public FormsFixture {
protected:
    void SetUp() override {
        FormsFixture::SetUp();
        App.GlblIniFile = config.file("ORQ.INI");
        const QSignalBlocker setUpOnly(frmORQ().cboOperator);
        frmORQ().cboOperator->addItem("Smith");
        frmORQ().cboOperator->setCurrentIndex(0);
    }
    // No mode: nothing stored.
    QString propose(const char* mode, const QByteArray& prefix = {}) {
        config.write("ORQ.INI", mode ? "[System]\nDataSubDirMode=" + QByteArray(mode) +
                                           "\nDataSubDir=" + prefix + "\n"
                                     : "[System]\n");
        SetSubDirectory();
        return frmORQ().txtSubDir->text();
    }
};

TEST_F(SubDirectoryTest, EachModeFormsItsName) {
    const QDate day(2009, 12, 22), leapEnd(2024, 12, 31), newYear(2024, 1, 1);
    const std::tuple<const char*, QByteArray, QDate, QString> cases[] = {
        {nullptr, {}, day, ""},
        {"Manual", " Lab ", day, "Lab"},
        {"FullDate", "Lab", day, "20091222"},
        {"PrefixDate", " Lab ", day, "Lab091222"},
        {"PrefixJulian", "L", leapEnd, "L2024366"},
        {"PrefixJulian", "L", newYear, "L2024001"},
        {"PrefixMonth", "Lab", day, "Lab1222"},
        {"OperatorDate", "Lab", day, "Smith091222"},
        {"OperatorJulian", "Lab", day, "Smith2009356"},
        {"OperatorMonth", "Lab", day, "Smith1222"},
        {"PrefixDate", QByteArray(50, 'P'), day, QString(34, u'P') + "091222"},
        {"prefixdate", "Lab", day, "Before"},
    };
    for (const auto& [mode, prefix, when, expected] : cases) {
        frmORQ().txtSubDir->setText("Before");
        clock.moment = QDateTime(when, QTime(10, 0));
        EXPECT_EQ(propose(mode, prefix), expected) << mode << " " << prefix.constData();
    }
    EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(SubDirectoryTest, ABlankInTheOperatorCutsTheNameWithAMessage) {
    frmORQ().cboOperator->setItemText(0, "Ana Ruiz");
    EXPECT_EQ(propose("OperatorDate"), "Ana");
    EXPECT_EQ(dialogs.shown,
              (std::vector<Shown>{{Shown::Box, BoxStyle::ExclamationOk, GetResourceString(17205),
                                   GetResourceString(17260)}}));
}

}  // namespace
