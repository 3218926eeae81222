#include <QCoreApplication>
#include <QTimer>

#include "AppState.h"
#include "CommandLine.h"
#include "G11n.h"
#include "StartupFixture.h"

using namespace sidekin;
using namespace sidekin::test;

namespace {

class CommandLineTest : public StartupFixture {
protected:
    void SetUp() override {
        StartupFixture::SetUp();
        clock.stepPerRead = 0.25;
    }
};

struct FieldCase {
    const char* name;
    const char* line;
    std::int32_t hostWnd;
    const char* service;
    const char* folder;
    std::int16_t instrument;
    const char* offline;
};

class CommandLineFields : public CommandLineTest,
                          public ::testing::WithParamInterface<FieldCase> {};

TEST_P(CommandLineFields, FillTheSharedState) {
    const FieldCase& c = GetParam();
    ParseCommandLine(QString::fromUtf8(c.line));
    EXPECT_EQ(App.GlblHostWnd, c.hostWnd);
    EXPECT_EQ(App.GlblDDEApp, QString::fromUtf8(c.service));
    EXPECT_EQ(App.GlblOrqDir, QString::fromUtf8(c.folder));
    EXPECT_EQ(App.GlblInstrument, c.instrument);
    EXPECT_EQ(App.GlblOffline, QString::fromUtf8(c.offline));
    EXPECT_EQ(windows.firstChildCalls > 0, c.line[0] != '|');  // an empty handle field: no search
    EXPECT_TRUE(dialogs.shown.empty());
}

INSTANTIATE_TEST_SUITE_P(
    Lines, CommandLineFields,
    ::testing::Values(
        FieldCase{"full", R"(77|ZenSvc|"/opt/orq/"|2|1)", 77, "ZenSvc", "/opt/orq/", 2, "1"},
        FieldCase{"blanksAroundFields", R"(  77 | ZenSvc |  "/o/" | 3 |  0  )", 77, "ZenSvc", "/o/",
                  3, "0"},
        FieldCase{"leadingBarReadsTheService", "|ZenSvc", 0, "ZenSvc", "C:\\Zentro32\\ORQ\\", 1,
                  "0"},
        FieldCase{"emptyFolderFieldTakesDefault", "5|ZenSvc||2|1", 5, "ZenSvc",
                  "C:\\Zentro32\\ORQ\\", 2, "1"},
        FieldCase{"emptyInstrumentTakesDefault", R"(5|ZenSvc|"/o/"||1)", 5, "ZenSvc", "/o/", 1,
                  "1"},
        FieldCase{"sixthFieldStaysWithTheFlag", R"(0|ZenSvc|"/o/"|2|1|extra)", 0, "ZenSvc", "/o/",
                  2, "1|extra"},
        FieldCase{"twoCharacterFolderIsEmpty", R"(0|ZenSvc|""|2)", 0, "ZenSvc", "", 2, "0"},
        FieldCase{"folderLosesFirstAndLastWhateverTheyAre", "0|ZenSvc|x/dir/y|2", 0, "ZenSvc",
                  "/dir/", 2, "0"},
        FieldCase{"fractionalInstrumentRoundsToEven", R"(0|ZenSvc|"/o/"|2.5)", 0, "ZenSvc", "/o/",
                  2, "0"},
        FieldCase{"negativeHandle", "-12|ZenSvc", -12, "ZenSvc", "C:\\Zentro32\\ORQ\\", 1, "0"}),
    [](const auto& info) { return std::string(info.param.name); });

struct HandleCase {
    const char* line;
    std::int32_t hostWnd;
};

TEST_F(CommandLineTest, SingleFieldHandleWrapsWithTheOddConstant) {
    writeHostIni("");
    for (HandleCase c : {HandleCase{"4294967295", 0}, HandleCase{"4294967296", 1},
                         HandleCase{"2147483648", -2147483647},
                         HandleCase{"2147483647", 2147483647}, HandleCase{"123abc", 123}}) {
        resetAppState();
        ParseCommandLine(QString::fromLatin1(c.line));
        EXPECT_EQ(App.GlblHostWnd, c.hostWnd) << c.line;
    }
}

struct FailureCase {
    const char* name;
    const char* line;
    const char* description;
    std::int32_t hostWnd;
    const char* service;
    const char* folder;
};

class CommandLineFailures : public CommandLineTest,
                            public ::testing::WithParamInterface<FailureCase> {};

TEST_P(CommandLineFailures, EndInTheHandlerWithUnreachedFieldsUnset) {
    const FailureCase& c = GetParam();
    ParseCommandLine(QString::fromUtf8(c.line));
    ASSERT_EQ(dialogs.shown.size(), 1u);
    EXPECT_EQ(dialogs.shown[0], (Shown{Shown::Box, BoxStyle::Plain,
                                       QString::fromUtf8(c.description), "ParseCommandLine"}));
    EXPECT_EQ(App.GlblHostWnd, c.hostWnd);
    EXPECT_EQ(App.GlblDDEApp, QString::fromUtf8(c.service));
    EXPECT_EQ(App.GlblOrqDir, QString::fromUtf8(c.folder));
    EXPECT_EQ(App.GlblInstrument, 0);
    EXPECT_EQ(App.GlblOffline, "");
}

INSTANTIATE_TEST_SUITE_P(
    Lines, CommandLineFailures,
    ::testing::Values(FailureCase{"handleAboveRangeWithBars", "2147483648|ZenSvc", "Overflow", 0,
                                  "", ""},
                      FailureCase{"oneCharacterFolder", "7|ZenSvc|x|2",
                                  "Invalid procedure call or argument", 7, "ZenSvc", ""},
                      FailureCase{"instrumentNotNumeric", R"(7|ZenSvc|"/o/"|two)", "Type mismatch",
                                  7, "ZenSvc", "/o/"},
                      FailureCase{"instrumentAbove16Bits", R"(7|ZenSvc|"/o/"|40000)", "Overflow", 7,
                                  "ZenSvc", "/o/"},
                      FailureCase{"emptyLineWithoutHostIni", "", "Type mismatch", 0, "", ""}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(CommandLineTest, ServiceLookupErrorsEndInTheHandler) {
    const struct {
        const char* ini;
        const char* description;
    } rows[] = {
        {"[PCS,1]\n_DDEOnLine=5\n_DDEOffLine=7\n", "Type mismatch"},  // no [PCS,5]
        {"[PCS,1]\n_DDEOnLine=ZenOnline1\n", "Type mismatch"},
        {"[pcs,1]\n_ddeonline=0\n", "Invalid procedure call or argument"},
        {"[pcs,1]\n_ddeonline=-3\n", "Invalid procedure call or argument"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.ini);
        resetAppState();
        dialogs.shown.clear();
        writeHostIni(row.ini);
        ParseCommandLine("|");
        EXPECT_EQ(dialogs.shown, (std::vector<Shown>{{Shown::Box, BoxStyle::Plain, row.description,
                                                      "ParseCommandLine"}}));
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
    EXPECT_EQ(App.GlblDDEApp, "");
}

TEST_F(CommandLineTest, SearchTakesTheFirstChildWithViewMgrInItsFourteenCharacters) {
    const struct {
        const char* name;
        QStringList titles;
        int found;  // index into titles, -1 for none
    } rows[] = {
        {"firstMatchAmongSiblings", {"Toolbar", "Zen ViewMGR 1", "ViewMGR later"}, 1},
        // ViewMGR begins at the 12th character here, and would end at the 16th there.
        {"onlyFourteenCharactersRead", {"Instrument ViewMGR", "Instrumen ViewMGR"}, -1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        FakeWindowSystem tree;
        std::vector<WindowHandle> made;
        for (const QString& title : row.titles) made.push_back(tree.addWindow(500, title));
        clock.setTime(12 * 3600);
        ParseCommandLine("500|ZenSvc");
        if (row.found >= 0) {
            EXPECT_EQ(App.GlblViewMgrWnd, made[row.found]);
            EXPECT_EQ(tree.titleReads, row.found + 1);
        } else {
            EXPECT_EQ(App.GlblViewMgrWnd, 0);
            const double spent = clock.moment.time().msecsSinceStartOfDay() / 1000.0 - 12 * 3600;
            EXPECT_GT(spent, 3.0);  // the search gives up after three seconds
            EXPECT_LT(spent, 4.0);
        }
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

TEST_F(CommandLineTest, SearchServesPendingEventsPerWindow) {
    windows.addWindow(500, "Toolbar");
    windows.addWindow(500, "ViewMGR");
    WindowHandle examinedWhenServed = -1;
    QTimer::singleShot(0, qApp, [&] { examinedWhenServed = App.GlblViewMgrWnd; });
    ParseCommandLine("500|ZenSvc");
    EXPECT_NE(examinedWhenServed, -1);
    EXPECT_NE(examinedWhenServed, 0);  // it ran inside the search, at a window
}

}  // namespace
