#include <QComboBox>
#include <QCoreApplication>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>

#include "AppState.h"
#include "DesktopNotice.h"
#include "FlexGridView.h"
#include "FrmOrq.h"
#include "RunTable.h"
#include "RunTableCommands.h"
#include "TableJournal.h"
#include "TableKeeping.h"
#include "TableKeepingEvents.h"
#include "WalkFixture.h"

using namespace sidekin;
using namespace sidekin::test;

namespace {

const QByteArray Header =
    "Run,Sample,Method,Sample ID,Inj Type,Vial,Data File,Sample Amt,ISTD Amt,Sample Info\r\n";

class TableKeepingTest : public WalkFixture {
protected:
    void SetUp() override {
        WalkFixture::SetUp();
        savedState = qgetenv("XDG_STATE_HOME");
        qputenv("XDG_STATE_HOME", state.path().toUtf8());
    }
    void TearDown() override {
        stopTableJournal();
        setDesktopNoticeSink({});
        WalkFixture::TearDown();
        qputenv("XDG_STATE_HOME", savedState);
    }

    FlexGrid& grid() { return frmORQ().fgrdRunTable->grid(); }
    std::vector<QStringList> rows() {
        std::vector<QStringList> all;
        for (const RunTableRow& row : snapshotOf(grid()).rows)
            all.emplace_back(row.cells.begin(), row.cells.end());
        return all;
    }
    // Imports the worklist body below the header; answers the boxes shown.
    std::vector<Shown> import(const QByteArray& body, const QByteArray& header = Header) {
        dialogs.shown.clear();
        dialogs.fileAnswers.push_back(files.write("list.csv", header + body));
        ImportWorklist();
        std::vector<Shown> boxes;
        for (const Shown& shown : dialogs.shown)
            if (shown.kind == Shown::Box) boxes.push_back(shown);
        return boxes;
    }
    QString onlyBoxText(const std::vector<Shown>& boxes) {
        EXPECT_EQ(boxes.size(), 1u);
        return boxes.empty() ? QString() : boxes.front().text;
    }

    TempFolder state;
    TempFolder files;
    QByteArray savedState;
};

const QByteArray GoodRows =
    "1,Calibration Mix,FRONTSTD,CAL-1,,2,CAL01,1.5,2,\"certificate 7, lot \"\"B\"\"\"\r\n"
    "2,Solvent Blank,BACKSTD,BLANK-1,,1,,,,\r\n"
    "3,Calibration Mix,FRONTSTD,CAL-2,,3,CAL02,,,\"two\nlines\"\r\n";

TEST_F(TableKeepingTest, ImportAddsEveryGoodRowThroughTheChecksOfAdd) {
    startHost();
    const auto boxes = import(GoodRows);
    EXPECT_EQ(onlyBoxText(boxes), "All 3 runs were added.");
    ASSERT_EQ(grid().Rows(), 4);
    EXPECT_EQ(rows()[0], (QStringList{"1", "Calibration Mix", "FRONTSTD", "CAL-1", text(17044), "2",
                                      "CAL01", "1.5", "2", "certificate 7, lot \"B\""}));
    // The counter's name, taken as Add takes it; the injection type is the method's.
    EXPECT_EQ(rows()[1][ColDataFile], "BLKB000000");
    EXPECT_EQ(rows()[2][ColSampleInfo], "two\nlines");
    EXPECT_TRUE(frmORQ().cmdRnTblEdit->isEnabled());
    EXPECT_TRUE(frmORQ().cmdRnTblPrint->isEnabled());
    // The host's name check ran for each row.
    EXPECT_EQ(host->executed().filter("ORQNameCheck").size(), 3);
    EXPECT_EQ(App.GlblCurrentRun, 0);
    EXPECT_EQ(hostStarts(), 0);
}

TEST_F(TableKeepingTest, FailingRowsAreListedWithLineAndReasonAndTheRestAdded) {
    startHost();
    const auto boxes = import(
        "12,Calibration Mix,FRONTSTD,CAL-1,,2,CAL01,,,\r\n"
        "2,Diesel,FRONTSTD,X,,2,D01,,,\r\n"
        "3,Calibration Mix,NOPE,X,,2,N01,,,\r\n"
        "4,Calibration Mix,FRONTSTD,X,,999,V01,,,\r\n"
        "5,Calibration Mix,FRONTSTD,X,,2,CAL01,,,\r\n"
        "6,Calibration Mix,FRONTSTD,,,2,E01,,,\r\n"
        "7,Calibration Mix,FRONTSTD,X,,2,A01,abc,,\r\n"
        "8,Calibration Mix,FRONTSTD,X,,2\r\n"
        "9,Calibration Mix,FRONTSTD,X,Manual,2,T01,,,\r\n"
        "10,Calibration Mix,FRONTSTD,X,,2,bad name.d,,,\r\n"
        "11,Calibration Mix,DUALINJ,X,,2,DUAL01,,,\r\n");
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].title, text(18010));
    const QStringList lines = boxes[0].text.split('\n');
    ASSERT_EQ(lines.size(), 11) << boxes[0].text.toStdString();
    EXPECT_EQ(lines[0], "1 of 11 runs were added. These were not:");
    EXPECT_EQ(lines[1], "line 3: the sample Diesel is not one of the operator's samples");
    EXPECT_EQ(lines[2], "line 4: the method NOPE is not one of the sample's methods");
    EXPECT_EQ(lines[3], "line 5: the vial 999 is out of the method's range");
    EXPECT_EQ(lines[4], "line 6: " + text(17213));
    EXPECT_EQ(lines[5], "line 7: " + text(17210));
    EXPECT_EQ(lines[6], "line 8: " + text(17229));
    EXPECT_EQ(lines[7], "line 9: 6 fields where the header has 10");
    EXPECT_EQ(lines[8], "line 10: the injection type Manual is not the method's");
    EXPECT_EQ(lines[9], "line 11: " + text(17212));
    EXPECT_TRUE(lines[10].startsWith("line 12: ")) << lines[10].toStdString();
    EXPECT_EQ(grid().Rows(), 2);
    EXPECT_EQ(rows()[0][0], "1") << "numbered in the table, not as in the file";
    // The operator's own Add form is left as it was.
    EXPECT_EQ(dialogs.boxTitles(), QStringList{text(18010)});

    QByteArray many;  // thirty failures are listed, then how many more
    for (int i = 0; i < 32; ++i) many += "1,Diesel,FRONTSTD,X,,2,D01,,,\r\n";
    const QStringList listed = import(many).at(0).text.split('\n');
    ASSERT_EQ(listed.size(), 32);
    EXPECT_TRUE(listed[30].startsWith("line 31: ")) << listed[30].toStdString();
}

TEST_F(TableKeepingTest, BadFilesChangeNothingAndSaySo) {
    startHost();
    ASSERT_EQ(onlyBoxText(import(GoodRows)), "All 3 runs were added.");
    const auto before = rows();
    QByteArray many = Header;
    for (int i = 0; i < 40000; ++i)
        many += "1,Calibration Mix,FRONTSTD,X,,2,R" + QByteArray::number(i) + ",,,\r\n";
    const struct {
        const char* name;
        QByteArray header, body;
        QString says;
    } cases[] = {
        {"cut inside quotes", Header, "1,Calibration Mix,FRONTSTD,X,,2,Z1,,,\"half",
         "The worklist is cut short: a quoted field from line 2 is not closed. Nothing was "
         "added."},
        {"missing columns", "Run,Sample,Vial\r\n", "1,Calibration Mix,2\r\n",
         "The worklist lacks the columns: Method, Sample ID, Data File. Nothing was added."},
        {"extra columns", Header.trimmed() + ",Colour\r\n", "",
         "The worklist has columns the run table does not know: Colour. Nothing was added."},
        {"a column twice", "Sample,Method,Sample ID,Data File,Sample\r\n", "",
         "The column Sample appears twice. Nothing was added."},
        {"empty", "", "", "The worklist is empty."},
        {"header only", Header, "", "The worklist is empty."},
        {"40,000 rows", many, "",
         "The worklist has 40000 runs; the run table holds at most 32766. Nothing was added."},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(onlyBoxText(import(c.body, c.header)), c.says) << c.name;
        EXPECT_EQ(rows(), before) << c.name;
    }
    grid().setRows(32766);  // 32765 runs: one more fits, the next does not
    EXPECT_EQ(onlyBoxText(import("1,Calibration Mix,FRONTSTD,X,,2,EDGE1,,,\r\n")),
              "All 1 runs were added.");
    EXPECT_EQ(onlyBoxText(import("1,Calibration Mix,FRONTSTD,X,,2,EDGE2,,,\r\n")),
              "The worklist has 1 runs; the run table holds at most 32766. Nothing was added.");
}

TEST_F(TableKeepingTest, SpreadsheetFlavoursImport) {
    startHost();
    // Semicolons, a byte-order mark, mixed line ends, Windows-1252, columns in another order.
    const QByteArray file =
        "\xEF\xBB\xBF"
        "Data File;Sample;Method;Sample ID;Sample Info\n"
        "CAL05;Calibration Mix;FRONTSTD;A;\"x;y\"\r"
        "CAL06;Calibration Mix;FRONTSTD;B;plain\r\n";
    EXPECT_EQ(onlyBoxText(import("", file)), "All 2 runs were added.");
    ASSERT_EQ(grid().Rows(), 3);
    EXPECT_EQ(rows()[0][ColSampleInfo], "x;y");
    EXPECT_EQ(rows()[1][ColDataFile], "CAL06");
    const QByteArray cp1252 =
        "Sample,Method,Sample ID,Data File,Sample Info\r\n"
        "Calibration Mix,FRONTSTD,C,CAL07,\xE9t\xE9\r\n";
    EXPECT_EQ(onlyBoxText(import("", cp1252)), "All 1 runs were added.");
    EXPECT_EQ(rows()[2][ColSampleInfo], QString::fromUtf8("été"));
}

TEST_F(TableKeepingTest, ExportThenImportGivesTheSameTableAndFile) {
    startHost();
    import(GoodRows);
    const auto table = rows();
    dialogs.fileAnswers.push_back(files.file("out1"));
    ExportWorklist();
    const QByteArray first = files.read("out1.csv");
    EXPECT_TRUE(first.startsWith(Header));
    ClearRunTable(frmORQ());
    dialogs.fileAnswers.push_back(files.file("out1.csv"));
    ImportWorklist();
    EXPECT_EQ(rows(), table);
    ASSERT_TRUE(ExportWorklistFile(files.file("out2.csv")));
    EXPECT_EQ(files.read("out2.csv"), first);
    dialogs.shown.clear();
    EXPECT_FALSE(ExportWorklistFile(files.file("no-such-folder/out3.csv")));
    EXPECT_EQ(
        dialogs.shown,
        (std::vector<Shown>{{Shown::Box, BoxStyle::ExclamationOk, text(18019), text(18011)}}));
}

TEST_F(TableKeepingTest, SaveAndOpenKeepRowsAndColours) {
    startHost();
    import(GoodRows);
    ColorRunTableRow(grid(), 1, RnTblColorCompleted);
    ColorRunTableRow(grid(), 2, RnTblColorAborted);
    const RunTableSnapshot saved = snapshotOf(grid());
    dialogs.shown.clear();
    dialogs.fileAnswers.push_back(files.file("night"));
    SaveRunTable();
    ASSERT_TRUE(QFile::exists(files.file("night.sidekin-table")));
    EXPECT_TRUE(dialogs.boxTitles().isEmpty());
    dialogs.fileAnswers.push_back(files.file("no-such-folder/night"));
    SaveRunTable();
    EXPECT_EQ(dialogs.boxTitles(), QStringList{text(18008)}) << "a folder that is not there";

    // Into a table that is not empty: asked first; No keeps the table.
    ClearRunTable(frmORQ());
    import("1,Calibration Mix,FRONTSTD,Z,,2,OTHER,,,\r\n");
    dialogs.shown.clear();
    dialogs.fileAnswers.push_back(files.file("night.sidekin-table"));
    dialogs.answerBox(BoxAnswer::No);
    OpenRunTable();
    EXPECT_EQ(dialogs.boxTitles(), QStringList{text(18009)});
    EXPECT_EQ(grid().Rows(), 2);

    dialogs.fileAnswers.push_back(files.file("night.sidekin-table"));
    dialogs.answerBox(BoxAnswer::Yes);
    OpenRunTable();
    EXPECT_TRUE(snapshotOf(grid()).sameTable(saved));
    EXPECT_EQ(grid().cellBackColor(2, 1), RnTblColorAborted);
    EXPECT_EQ(App.GlblCurrentRun, 0);
    EXPECT_EQ(hostStarts(), 0);
}

TEST_F(TableKeepingTest, AFileThatIsNoTableSaysWhy) {
    startHost();
    const QByteArray head = R"({"format":"sidekin run table","version":)";
    const std::pair<QByteArray, int> cases[] = {
        {"run table", 18015},
        {R"({"format":"other","rows":[]})", 18016},
        {head + R"(9,"rows":[]})", 18017},
        {head + R"(1,"rows":[{"cells":[]}]})", 18018},
    };
    for (const auto& [bytes, message] : cases) {
        dialogs.fileAnswers.push_back(files.write("bad.sidekin-table", bytes));
        OpenRunTable();
        EXPECT_EQ(dialogs.shown.back().text, text(message).replace("<NUMBER>", "1")) << message;
    }
    dialogs.fileAnswers.push_back(files.path());  // a folder cannot be read as a file
    OpenRunTable();
    EXPECT_EQ(dialogs.shown.back().text, text(18014));
    EXPECT_EQ(grid().Rows(), 1);
}

TEST_F(TableKeepingTest, AFileOfAnotherOperatorOrInstrumentSaysSo) {
    startHost();
    RunTableSnapshot table;
    table.operatorName = "Brooks";
    table.instrument = 2;
    table.rows.resize(1);
    table.rows[0].cells = {"1", "Process Gas", "VALVEGAS", "G", "", "1", "GAS1", "", "", ""};
    const QString path = files.write("other.sidekin-table", encodeRunTable(table));
    dialogs.shown.clear();
    dialogs.fileAnswers.push_back(path);
    dialogs.answerBox(BoxAnswer::No);
    OpenRunTable();
    ASSERT_EQ(dialogs.boxTitles(), QStringList{text(18009)});
    EXPECT_EQ(dialogs.shown.back().text,
              "This table was made for operator Brooks on instrument 2. Open it anyway?");
    EXPECT_EQ(grid().Rows(), 1);
}

// With no operator chosen, opening a table chooses its operator without opening the Add form.
TEST_F(TableKeepingTest, OpeningChoosesTheTablesOperator) {
    startHost();
    import(GoodRows);
    dialogs.fileAnswers.push_back(files.file("t.sidekin-table"));
    SaveRunTable();
    const QString chosen = frmORQ().cboOperator->currentText();
    cmdRnTblClear_Click();
    ASSERT_TRUE(App.GlblOperator.isEmpty());
    dialogs.shown.clear();
    dialogs.fileAnswers.push_back(files.file("t.sidekin-table"));
    OpenRunTable();
    EXPECT_EQ(dialogs.shown.size(), 1u) << "the file dialog alone";
    EXPECT_EQ(App.GlblOperator, chosen);
    EXPECT_EQ(frmORQ().cboOperator->currentText(), chosen);
    EXPECT_TRUE(frmORQ().cmdRnTblAdd->isEnabled());
    EXPECT_TRUE(frmORQ().cmdStartPauseResume->isEnabled());
    EXPECT_EQ(grid().Rows(), 4);
}

TEST_F(TableKeepingTest, TheJournalRecoversTheLastTableWithItsColours) {
    startHost();
    startTableJournal();
    QMenu menu;
    fillRunTableMenu(menu);
    EXPECT_EQ(menu.actions().first()->text(), text(18002)) << "no offer without a journal";
    import(GoodRows);
    ColorRunTableRow(grid(), 1, RnTblColorCompleted);
    QCoreApplication::processEvents();
    const RunTableSnapshot kept = snapshotOf(grid());
    const QString path = journalPath(1);
    ASSERT_TRUE(readRunTableFile(path).table->sameTable(kept));

    // The next session: an empty table at the start leaves the journal alone.
    stopTableJournal();
    ClearRunTable(frmORQ());
    const QByteArray journal = state.read("sidekin/run-table-instrument-1.json");
    startTableJournal();
    QCoreApplication::processEvents();
    EXPECT_EQ(state.read("sidekin/run-table-instrument-1.json"), journal);
    EXPECT_TRUE(recoverOfferText().startsWith("Recover the table of "));
    EXPECT_TRUE(recoverOfferText().endsWith(" (3 runs)"));
    QMenu offered;
    fillRunTableMenu(offered);
    EXPECT_EQ(offered.actions().first()->text(), recoverOfferText());

    dialogs.shown.clear();
    RecoverRunTable();
    EXPECT_TRUE(dialogs.shown.empty());
    EXPECT_TRUE(snapshotOf(grid()).sameTable(kept));
    EXPECT_EQ(grid().cellBackColor(1, 0), RnTblColorCompleted);
    EXPECT_EQ(App.GlblCurrentRun, 0);
    EXPECT_EQ(App.GlblRunState, RunStateIdle);
    EXPECT_EQ(hostStarts(), 0);
    EXPECT_TRUE(recoverOfferText().isEmpty());
}

TEST_F(TableKeepingTest, TheJournalFollowsTheWalk) {
    startHostWithQuickRuns();
    startTableJournal();
    threeRows();
    clickStartPauseResume();
    ASSERT_TRUE(waitForIdle());
    QCoreApplication::processEvents();
    const RunTableFileRead read = readRunTableFile(journalPath(1));
    ASSERT_TRUE(read.table);
    ASSERT_EQ(read.table->rows.size(), 3u);
    for (const RunTableRow& row : read.table->rows) EXPECT_EQ(row.colours[0], RnTblColorCompleted);
    EXPECT_GE(tableJournal()->writes(), 4);
}

TEST_F(TableKeepingTest, ADesktopNoticeTellsTheEndOfTheTable) {
    QStringList notices;
    setDesktopNoticeSink([&](const QString& summary, const QString& body) {
        notices << summary + ": " + body;
        return true;
    });
    startHostWithQuickRuns();
    wireTableKeeping(frmORQ());
    threeRows();
    clickStartPauseResume();
    ASSERT_TRUE(waitForIdle());
    EXPECT_EQ(notices, QStringList{"Sidekin, instrument 1: The run table is complete."});
}

TEST_F(TableKeepingTest, ADesktopNoticeTellsAStop) {
    QStringList notices;
    setDesktopNoticeSink([&](const QString& summary, const QString& body) {
        notices << summary + ": " + body;
        return true;
    });
    startHost();
    wireTableKeeping(frmORQ());
    threeRows();
    clickStartPauseResume();
    clickStop();
    finishRun();
    ASSERT_TRUE(waitForIdle());
    EXPECT_EQ(notices,
              QStringList{"Sidekin, instrument 1: The run table was stopped after run 1."});
}

TEST_F(TableKeepingTest, NoNoticeServiceIsNoFault) {
    // With a session bus, DesktopNoticeBusTest covers a bus without the service.
    if (qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS")) GTEST_SKIP() << "a session bus";
    EXPECT_FALSE(showDesktopNotice("Sidekin", "nobody listens"));
}

}  // namespace
