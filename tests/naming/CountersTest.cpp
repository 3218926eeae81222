#include <QFile>
#include <QLineEdit>

#include "AppState.h"
#include "Counters.h"
#include "G11n.h"
#include "Profile.h"
#include "StartupFixture.h"

using namespace sidekin;
using namespace sidekin::test;

namespace {

class CountersTest : public StartupFixture {
protected:
    void SetUp() override {
        StartupFixture::SetUp();
        App.GlblIniFile = config.file("ORQ.INI");
    }
    void store(const QByteArray& dataFile, const QByteArray& naming = "PrefixCounter") {
        config.write("ORQ.INI", "[Oil,FAME]\r\nDataFileNaming=" + naming +
                                    "\r\nDataFile=" + dataFile + "\r\n[Other]\r\nKey=kept\r\n");
    }
    QString stored() const { return GetPvtProfileStr("Oil,FAME", "DataFile", App.GlblIniFile); }
    QString take() { return GetNextFileName(field.text(), "Oil", "FAME"); }
    QString peek() { return PeekNextFileName("Oil", "FAME"); }

    QLineEdit field;
};

struct WidthCase {
    const char* dataFile;
    const char* name;
    std::int32_t countMax;
};

TEST_F(CountersTest, NameWidthFollowsThePrefixLength) {
    for (WidthCase c :
         {WidthCase{"ABC,17", "ABC000017", 1000000},
          WidthCase{"ABCDEFGHI,5", "ABCDEFGHI000005", 1000000},
          WidthCase{"ABCDEFGHIJ,5", "ABCDEFGHIJ00005", 100000},
          WidthCase{"ABCDEFGHIJKL,7", "ABCDEFGHIJKL007", 1000},
          WidthCase{"ABCDEFGHIJKLMN,7", "ABCDEFGHIJKLMN7", 10},
          WidthCase{"ABCDEFGHIJKLMNO,0", "ABCDEFGHIJKLMNO0", 1},
          WidthCase{"ABCDEFGHIJKL,1000", "ABCDEFGHIJKL1000", 1000},
          WidthCase{" ABC , 17 ", "ABC000017", 1000000}, WidthCase{"", "000000", 1000000}}) {
        store(c.dataFile);
        EXPECT_EQ(peek(), c.name) << c.dataFile;
        EXPECT_EQ(GetDataFileCountMax("Oil", "FAME"), c.countMax) << c.dataFile;
    }
    EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(CountersTest, CountMaxCountsBlanksAroundThePrefix) {
    store("ABCDEFGHIJ  ,3");  // 12 characters before the comma
    EXPECT_EQ(GetDataFileCountMax("Oil", "FAME"), 1000);
}

TEST_F(CountersTest, PeeksGiveTheNameTheTakeThenUses) {
    store("OIL, 41");
    const QByteArray before = config.read("ORQ.INI");
    EXPECT_EQ(peek(), "OIL000041");
    EXPECT_EQ(peek(), "OIL000041");
    EXPECT_EQ(config.read("ORQ.INI"), before);
    EXPECT_EQ(take(), "OIL000041");
    EXPECT_EQ(stored(), "OIL,42");
    EXPECT_EQ(take(), "OIL000042");
    EXPECT_EQ(stored(), "OIL,43");
    EXPECT_EQ(GetPvtProfileStr("Other", "Key", App.GlblIniFile), "kept");
}

TEST_F(CountersTest, ManualModeReturnsTheFieldAndWritesNothing) {
    store("OIL,41", "Manual");
    const QByteArray before = config.read("ORQ.INI");
    field.setText("MyRun");
    EXPECT_EQ(take(), "MyRun");
    EXPECT_EQ(config.read("ORQ.INI"), before);
}

TEST_F(CountersTest, MissingDataFileStartsAtZero) {
    config.write("ORQ.INI", "[Oil,FAME]\nDataFileNaming=PrefixCounter\n");
    EXPECT_EQ(take(), "000000");
    EXPECT_EQ(stored(), ",1");
}

TEST_F(CountersTest, CountAtItsLimitKeepsGivingTheLastName) {
    store("OIL,32767");
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(take(), "OIL032767");
        EXPECT_EQ(stored(), "OIL,32767");
    }
    EXPECT_EQ(dialogs.boxTitles(), (QStringList{"GetNextFileName", "GetNextFileName"}));
    EXPECT_EQ(dialogs.shown[0].text, "Overflow");
}

TEST_F(CountersTest, UnusableCountsAndPrefixesGiveNoName) {
    struct {
        const char* dataFile;
        const char* error;
    } cases[] = {{"OIL,1000000", "Overflow"},
                 {"OIL,32768", "Overflow"},
                 {"ABCDEFGHIJKLMNOP,1", "Invalid procedure call or argument"}};
    for (auto c : cases) {
        store(c.dataFile);
        dialogs.shown.clear();
        EXPECT_EQ(peek(), "") << c.dataFile;
        EXPECT_EQ(take(), "") << c.dataFile;
        EXPECT_EQ(stored(), c.dataFile);
        ASSERT_EQ(dialogs.shown.size(), 2u) << c.dataFile;
        EXPECT_EQ(dialogs.shown[0].text, c.error);
    }
    store("ABCDEFGHIJKLMNOP,1");
    EXPECT_EQ(GetDataFileCountMax("Oil", "FAME"), 0);
}

TEST_F(CountersTest, FailedWriteWarnsAndTheSameNameComesBack) {
    store("OIL,5");
    QFile::setPermissions(App.GlblIniFile, QFile::ReadOwner | QFile::ReadGroup);
    EXPECT_EQ(take(), "OIL000005");
    EXPECT_EQ(take(), "OIL000005");
    ASSERT_EQ(dialogs.shown.size(), 2u);
    EXPECT_EQ(dialogs.shown[0], (Shown{Shown::Box, BoxStyle::ExclamationOk,
                                       GetResourceString(17222), GetResourceString(17267)}));
    EXPECT_EQ(stored(), "OIL,5");
}

}  // namespace
