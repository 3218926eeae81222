#include <QComboBox>
#include <QFile>

#include "AppState.h"
#include "CommandLine.h"
#include "FormsFixture.h"
#include "FrmOrq.h"
#include "G11n.h"
#include "Main.h"
#include "Profile.h"
#include "platform/Screen.h"

using namespace sidekin;
using namespace sidekin::test;

namespace {

class CommandLineTest : public StartupFixture {
protected:
    void SetUp() override {
        StartupFixture::SetUp();
        clock.stepPerRead = 0.25;
    }
    // Parses line afresh; answers "handle, service, folder, instrument, offline".
    QString parse(const char* ini, const char* line) {
        resetAppState();
        dialogs.shown.clear();
        if (ini)
            writeHostIni(ini);
        else
            QFile::remove(config.file("zentrovar.ini"));
        ParseCommandLine(QString::fromUtf8(line));
        return QStringList{QString::number(App.GlblHostWnd), App.GlblDDEApp, App.GlblOrqDir,
                           QString::number(App.GlblInstrument), App.GlblOffline}
            .join(", ");
    }
};

// A failing field ends in the handler's box and leaves the fields after it unset.
TEST_F(CommandLineTest, FieldsFillTheSharedStateOrEndInTheHandler) {
    const struct {
        const char* name;
        const char* ini;  // zentrovar.ini; nullptr for none
        const char* line;
        const char* fields;
        const char* error;  // the handler's box text; "" for none
    } rows[] = {
        // clang-format off
        {"full", nullptr, R"(77|ZenSvc|"/opt/orq/"|2|1)", "77, ZenSvc, /opt/orq/, 2, 1", ""},
        {"blanksAround", nullptr, R"(  77 | ZenSvc |  "/o/" | 3 |  0  )", "77, ZenSvc, /o/, 3, 0", ""},
        {"leadingBar", nullptr, "|ZenSvc", "0, ZenSvc, C:\\Zentro32\\ORQ\\, 1, 0", ""},
        {"emptyFolder", nullptr, "5|ZenSvc||2|1", "5, ZenSvc, C:\\Zentro32\\ORQ\\, 2, 1", ""},
        {"emptyInstrument", nullptr, R"(5|ZenSvc|"/o/"||1)", "5, ZenSvc, /o/, 1, 1", ""},
        {"sixthFieldJoinsTheFlag", nullptr, R"(0|ZenSvc|"/o/"|2|1|x)", "0, ZenSvc, /o/, 2, 1|x", ""},
        {"twoCharacterFolder", nullptr, R"(0|ZenSvc|""|2)", "0, ZenSvc, , 2, 0", ""},
        {"folderLosesFirstAndLast", nullptr, "0|ZenSvc|x/dir/y|2", "0, ZenSvc, /dir/, 2, 0", ""},
        {"instrumentHalfToEven", nullptr, R"(0|ZenSvc|"/o/"|2.5)", "0, ZenSvc, /o/, 2, 0", ""},
        {"loneHandleWraps", "", "4294967296", "1, , , 0, ", "Type mismatch"},
        {"loneHandleAboveRange", "", "2147483648", "-2147483647, , , 0, ", "Type mismatch"},
        {"handleAboveRange", nullptr, "2147483648|ZenSvc", "0, , , 0, ", "Overflow"},
        {"oneCharacterFolder", nullptr, "7|ZenSvc|x|2", "7, ZenSvc, , 0, ", "Invalid procedure call or argument"},
        {"instrumentNotNumeric", nullptr, R"(7|ZenSvc|"/o/"|two)", "7, ZenSvc, /o/, 0, ", "Type mismatch"},
        {"instrumentAbove16Bits", nullptr, R"(7|ZenSvc|"/o/"|40000)", "7, ZenSvc, /o/, 0, ", "Overflow"},
        {"emptyWithoutHostIni", nullptr, "", "0, , , 0, ", "Type mismatch"},
        {"offlineKeyReadAfterOnline", "[PCS,1]\n_DDEOnLine=5\n_DDEOffLine=0\n", "|", "0, , , 0, ", "Invalid procedure call or argument"},
        {"serviceNotANumber", "[PCS,1]\n_DDEOnLine=ZenOnline1\n", "|", "0, , , 0, ", "Type mismatch"},
        {"serviceZero", "[pcs,1]\n_ddeonline=0\n", "|", "0, , , 0, ", "Invalid procedure call or argument"},
        // clang-format on
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(parse(row.ini, row.line), row.fields);
        const std::vector<Shown> box{{Shown::Box, BoxStyle::Plain, row.error, "ParseCommandLine"}};
        EXPECT_EQ(dialogs.shown, *row.error ? box : std::vector<Shown>{});
    }
}

TEST_F(CommandLineTest, ServiceLookupOfPositiveNumbersEndsTheProgram) {
    // Every pass reads both keys; a missing one empties the buffer (type mismatch).
    QByteArray ini;
    for (int n = 1; n <= 4; ++n)
        ini += "[PCS," + QByteArray::number(n) + "]\n_DDEOnLine=5\n_DDEOffLine=7\n";
    writeHostIni(ini);
    EXPECT_THROW(ParseCommandLine("|"), ProgramEnded);
    EXPECT_EQ(dialogs.shown,
              (std::vector<Shown>{{Shown::Box, BoxStyle::Critical, GetResourceString(17217),
                                   GetResourceString(17266)}}));
}

TEST_F(CommandLineTest, SearchTakesTheFirstChildWithViewMgrInItsFourteenCharacters) {
    // The titles under the host and the index of the one found, -1 for none.
    const std::tuple<const char*, QStringList, int> rows[] = {
        {"firstMatchAmongSiblings", {"Toolbar", "Zen ViewMGR 1", "ViewMGR later"}, 1},
        // ViewMGR begins at the 12th character here, and would end at the 16th there.
        {"onlyFourteenCharactersRead", {"Instrument ViewMGR", "Instrumen ViewMGR"}, -1},
    };
    for (const auto& [name, titles, found] : rows) {
        SCOPED_TRACE(name);
        FakeWindowSystem tree;
        std::vector<WindowHandle> made;
        for (const QString& title : titles) made.push_back(tree.addWindow(500, title));
        clock.setTime(12 * 3600);
        ParseCommandLine("500|ZenSvc");
        EXPECT_EQ(App.GlblViewMgrWnd, found >= 0 ? made[found] : 0);
        const double spent = clock.moment.time().msecsSinceStartOfDay() / 1000.0 - 12 * 3600;
        EXPECT_EQ(spent > 3.0 && spent < 4.0, found < 0);  // gives up after three seconds
    }
}

TEST_F(CommandLineTest, SearchAcrossMidnightRunsUntilTheWindowAppears) {
    clock.setTime(86399.0);
    WindowHandle view = 0;
    windows.onFirstChild = [&](int calls) {
        if (calls == 40) view = windows.addWindow(500, "ViewMGR");
    };
    ParseCommandLine("500|ZenSvc");
    EXPECT_EQ(App.GlblViewMgrWnd, view);
    EXPECT_EQ(windows.firstChildCalls, 40);
    EXPECT_LT(clock.moment.time().msecsSinceStartOfDay(), 3600 * 1000);  // past midnight
}

using ProfileTest = StartupFixture;

TEST_F(ProfileTest, EmptyOrMissingReadsAsMinusOne) {
    const QString ini = config.write(
        "ORQ.INI", "[Operators]\r\nOperator1=\r\n[S]\nK=" + QByteArray(300, 'v') + "\n");
    EXPECT_EQ(GetPvtProfileStr("S", "K", ini), QString(255, u'v'));
    EXPECT_EQ(GetPvtProfileStr("Operators", "Operator1", ini), "-1");
    EXPECT_TRUE(dialogs.shown.empty());
    writeHostIni("[PCS,1]\n_DDEOnLine=ZenOnline1\n");
    EXPECT_EQ(GetProfileStr("PCS,1", "_DDEONLINE"), "ZenOnline1");
    EXPECT_EQ(GetProfileStr("PCS,2", "_DDEONLINE"), "-1");
}

// The first field keeps its blanks, a middle one loses its leading blanks, the last both.
TEST(GetParameterTest, CutsTheNthField) {
    const std::tuple<const char*, std::int16_t, const char*, const char*> rows[] = {
        {"a|b|c", 3, "|", "c"},     {"a|b|c", 4, "|", ""},        {"a||c", 2, "|", ""},
        {" a , b ", 1, ",", " a "}, {"a,  b  ,c", 2, ",", "b  "}, {"a,  c  ", 2, ",", "c"},
        {"", 1, ",", ""},           {"aXbxc", 2, "x", "c"}};
    for (auto [text, index, separator, expected] : rows)
        EXPECT_EQ(GetParameter(text, index, separator), QString::fromUtf8(expected))
            << text << " #" << index;
}

class MainTest : public FormsFixture {
protected:
    void SetUp() override {
        FormsFixture::SetUp();
        unloadFrmORQ();
        clock.stepPerRead = 0.25;
    }
    void TearDown() override {
        unloadFrmORQ();
        FormsFixture::TearDown();
    }
};

TEST_F(MainTest, WindowGoesIntoTheViewMgrChildOrBelowTheHostBars) {
    const float belowBars = TwipsPerPixelY() / 15.0f * 1200;
    // Command line, title of the child under host 900, the window's top, whether it is parented.
    const std::tuple<const char*, const char*, const char*, float, bool> rows[] = {
        {"viewMgrFound", "900|ZenSvc", "ViewMGR", 0.0f, true},
        {"searchFailed", "900|ZenSvc", "Toolbar", belowBars, true},
        {"noHandle", "|ZenSvc", "ViewMGR", belowBars, false},
    };
    for (const auto& [name, line, title, top, parented] : rows) {
        SCOPED_TRACE(name);
        unloadFrmORQ();
        resetAppState();
        FakeWindowSystem tree;
        const WindowHandle child = tree.addWindow(900, title);
        const WindowHandle parent = top == 0.0f ? child : 900;
        Main(line);
        EXPECT_EQ(frmORQ().topTwips(), top);
        EXPECT_EQ(tree.parentings, (std::vector<std::pair<WindowHandle, WindowHandle>>(
                                       parented, {windowHandleOf(frmORQ()), parent})));
        EXPECT_EQ(App.GlblViewMgrWnd, parented ? parent : 0);
        EXPECT_TRUE(parented || App.GlblPrevParentWnd == 0);
    }
}

TEST_F(MainTest, WithoutAHostTheWindowStaysLoadedAndHidden) {
    Main("");
    // The rest of start-up goes on after each handler's box.
    EXPECT_EQ(dialogs.boxTitles(),
              (QStringList{"ParseCommandLine", "VB DDE Error", "iNITddesHOWorq", "ShowHideOrq"}));
    EXPECT_TRUE(frmORQLoaded());
    EXPECT_FALSE(frmORQ().isVisible());
}

TEST_F(MainTest, FormLoadFillsTheOperators) {
    App.GlblIniFile = config.write(
        "ORQ.INI", "[Operators]\nNumOperators=3\nOperator1=Ana Ruiz\nOperator3=Tom Baker\n");
    Main("|ZenSvc");
    QComboBox* operators = frmORQ().cboOperator;
    QStringList names;
    for (int i = 0; i < operators->count(); ++i) names << operators->itemText(i);
    EXPECT_EQ(names, (QStringList{"Ana Ruiz", "-1", "Tom Baker"}));  // a missing name reads -1
    EXPECT_EQ(operators->currentIndex(), -1);  // the rest of the window: main-empty pictures
}

}  // namespace
