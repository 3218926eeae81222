#include <gtest/gtest.h>

#include <QDir>

#include "RunTableFile.h"
#include "WorklistCsv.h"

using namespace sidekin;

namespace {

RunTableSnapshot twoRuns() {
    RunTableSnapshot table;
    table.operatorName = QStringLiteral("Avery");
    table.instrument = 3;
    table.saved = QDateTime(QDate(2026, 11, 25), QTime(21, 5, 0));
    table.currentRun = 1;
    RunTableRow first;
    first.cells = {
        "1", "Solvent Blank", "FRONTSTD", "ID \"1\"", "GC Injector",
        "5", "BLKF000001",    "",         "",         QString::fromUtf8("info, ✓\nsecond line")};
    first.colours[0] = first.colours[1] = 0xC0FFFFu;
    RunTableRow second;
    second.cells = {"2", "Calibration Mix", "FRONTSTD", "X", "", "2", "CAL01", "1.5", "2", ""};
    table.rows = {first, second};
    return table;
}

// Whatever length a cut leaves, the file is refused as damaged: never half a table.
TEST(RunTableFileTest, EveryTruncationIsRefused) {
    const QByteArray bytes = encodeRunTable(twoRuns());
    const qsizetype end = bytes.trimmed().size();
    for (qsizetype length = 0; length < end; ++length) {
        const RunTableFileRead read = decodeRunTable(bytes.left(length));
        EXPECT_FALSE(read.table.has_value()) << "cut at " << length;
        EXPECT_NE(read.error, RunTableFileError::None) << "cut at " << length;
    }
}

TEST(RunTableFileTest, HandEditsAreNamed) {
    const QByteArray good = encodeRunTable(twoRuns());
    const struct {
        const char* name;
        QByteArray bytes;
        RunTableFileError error;
        int badRow;
    } cases[] = {
        {"not JSON", "run table", RunTableFileError::Damaged, 0},
        {"another JSON file", R"({"format":"other","rows":[]})", RunTableFileError::NotATable, 0},
        {"a later version", QByteArray(good).replace("\"version\":1", "\"version\":9"),
         RunTableFileError::Newer, 0},
        {"a row with nine cells", QByteArray(good).replace("\"CAL01\",", ""),
         RunTableFileError::BadRow, 2},
        {"a row with eleven cells", QByteArray(good).replace("\"CAL01\",", "\"CAL01\",\"\","),
         RunTableFileError::BadRow, 2},
        {"a cell that is a number", QByteArray(good).replace("\"Calibration Mix\"", "7"),
         RunTableFileError::BadRow, 2},
        {"a cell with a tab", QByteArray(good).replace("CAL01", "CAL\\t01"),
         RunTableFileError::BadRow, 2},
        {"a colour below zero", QByteArray(good).replace("12648447", "-1"),
         RunTableFileError::BadRow, 1},
    };
    QByteArray many = R"({"format":"sidekin run table","version":1,"rows":[)";
    for (int i = 0; i < 32767; ++i)
        many += QByteArray(i ? "," : "") + R"({"cells":["","","","","","","","","",""]})";
    EXPECT_EQ(decodeRunTable(many + "]}").error, RunTableFileError::TooMany);
    for (const auto& c : cases) {
        const RunTableFileRead read = decodeRunTable(c.bytes);
        EXPECT_EQ(read.error, c.error) << c.name;
        EXPECT_EQ(read.badRow, c.badRow) << c.name;
        EXPECT_FALSE(read.table.has_value()) << c.name;
    }
}

TEST(RunTableFileTest, TheJournalLivesInTheStateFolder) {
    const QByteArray saved = qgetenv("XDG_STATE_HOME");
    qputenv("XDG_STATE_HOME", "/tmp/state-of-test");
    EXPECT_EQ(journalPath(2), "/tmp/state-of-test/sidekin/run-table-instrument-2.json");
    qputenv("XDG_STATE_HOME", "relative/is/ignored");
    EXPECT_TRUE(stateFolder().endsWith("/.local/state/sidekin"));
    qunsetenv("XDG_STATE_HOME");
    EXPECT_EQ(stateFolder(), QDir::homePath() + "/.local/state/sidekin");
    qputenv("XDG_STATE_HOME", saved);
}

std::vector<QStringList> fieldsOf(const CsvRead& read) {
    std::vector<QStringList> fields;
    for (const CsvRecord& record : read.records) fields.push_back(record.fields);
    return fields;
}

TEST(WorklistCsvTest, ReadsWhatSpreadsheetsWrite) {
    const struct {
        const char* name;
        QByteArray bytes;
        std::vector<QStringList> fields;
        std::vector<int> lines;
    } cases[] = {
        {"plain", "a,b\r\n1,2\r\n", {{"a", "b"}, {"1", "2"}}, {1, 2}},
        {"no line end at the end", "a,b\n1,2", {{"a", "b"}, {"1", "2"}}, {1, 2}},
        {"byte-order mark",
         "\xEF\xBB\xBF"
         "a,b\n1,2\n",
         {{"a", "b"}, {"1", "2"}},
         {1, 2}},
        {"semicolons", "a;b\n1,5;2\n", {{"a", "b"}, {"1,5", "2"}}, {1, 2}},
        {"mixed line ends", "a\r1\n2\r\n3\r", {{"a"}, {"1"}, {"2"}, {"3"}}, {1, 2, 3, 4}},
        {"blank lines skipped", "a\n\n1\n\r\n", {{"a"}, {"1"}}, {1, 3}},
        {"quotes", "a,b\n\"x, \"\"y\"\"\",\"\"\n", {{"a", "b"}, {"x, \"y\"", ""}}, {1, 2}},
        {"line break in quotes",
         "a,b\n\"1\n2\",3\n4,5\n",
         {{"a", "b"}, {"1\n2", "3"}, {"4", "5"}},
         {1, 2, 4}},
        {"empty fields", ",\n,,\n", {{"", ""}, {"", "", ""}}, {1, 2}},
        {"Windows-1252", "a\n\xE9t\xE9 \x80\n", {{"a"}, {QString::fromUtf8("été €")}}, {1, 2}},
    };
    for (const auto& c : cases) {
        const CsvRead read = readCsv(c.bytes);
        EXPECT_EQ(read.error, CsvError::None) << c.name;
        EXPECT_EQ(fieldsOf(read), c.fields) << c.name;
        std::vector<int> lines;
        for (const CsvRecord& record : read.records) lines.push_back(record.line);
        EXPECT_EQ(lines, c.lines) << c.name;
    }
}

TEST(WorklistCsvTest, CutShortAndEmptyFilesAreNamed) {
    EXPECT_EQ(readCsv("").error, CsvError::Empty);
    EXPECT_EQ(readCsv("\xEF\xBB\xBF\r\n\n").error, CsvError::Empty);
    const CsvRead cut = readCsv("a,b\n1,2\n\"3,4\n5,6\n");
    EXPECT_EQ(cut.error, CsvError::UnclosedQuote);
    EXPECT_EQ(cut.errorLine, 3);
}

}  // namespace
