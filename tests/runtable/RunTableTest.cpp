#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <array>

#include "AppState.h"
#include "Nls.h"
#include "RunTable.h"
#include "RuntimeError.h"
#include "StartupFixture.h"

using namespace sidekin;
using namespace sidekin::test;

namespace {

const QStringList EnglishHeaders = {"Run",  "Sample",    "Method",     "Sample ID", "Inj Type",
                                    "Vial", "Data File", "Sample Amt", "ISTD Amt",  "Sample Info"};

QStringList headers(const FlexGrid& grid) {
    QStringList out;
    for (int c = 0; c < grid.Cols(); ++c) out << grid.TextArray(c);
    return out;
}

std::array<int, 4> selection(const FlexGrid& g) {
    return {g.Row(), g.Col(), g.RowSel(), g.ColSel()};
}

class RunTableTest : public StartupFixture {
protected:
    void SetUp() override {
        StartupFixture::SetUp();
        SetColumnHeaders(grid);
        for (int i = 0; i < 3; ++i) grid.AddItem("0\tOil\tFAME");
    }
    void TearDown() override {
        qunsetenv("SIDEKIN_TEXTS_DIR");
        StartupFixture::TearDown();
    }
    // A made-up language: the English headers and this text 17320.
    void useCharsetText(const QByteArray& text17320) {
        QByteArray table = "17320=" + text17320 + "\n";
        for (int i = 0; i < EnglishHeaders.size(); ++i)
            table += QByteArray::number(17025 + i) + "=" + EnglishHeaders[i].toUtf8() + "\n";
        texts.write("xx.txt", table);
        qputenv("SIDEKIN_TEXTS_DIR", texts.path().toUtf8());
        setNlsLanguage("xx");
        ASSERT_EQ(NLSInit(0), 1);
    }
    void clearRunTable() {
        ClearRunTable(grid, {&edit, &del, &start, &print, &lblSubDir, &txtSubDir});
    }

    TempFolder texts;
    FlexGrid grid{1, 2};
    QPushButton edit, del, start, print;
    QLabel lblSubDir;
    QLineEdit txtSubDir;
};

TEST_F(RunTableTest, HeadersGiveTenLeftAlignedColumnsAndTheCharset) {
    EXPECT_EQ(headers(grid), EnglishHeaders);
    for (int c = 0; c < 10; ++c) EXPECT_EQ(grid.ColAlignment(c), GridAlignment::Left) << c;
    for (auto [text, charset] :
         {std::pair<QByteArray, int>{"128", 128}, {" 134 GB2312", 134}, {"Western", 0}, {"", 0}}) {
        App.GlblFontCharset = -7;
        useCharsetText(text);
        SetColumnHeaders(grid);
        EXPECT_EQ(App.GlblFontCharset, charset) << text.constData();
        EXPECT_EQ(grid.FontCharset(), charset) << text.constData();
    }
    EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(RunTableTest, ClearRunTableLeavesAnEmptyTableWithHeaders) {
    ColorRunTableRow(grid, 2, RnTblColorCompleted);
    SelectRunTableRow(grid, 3);
    clearRunTable();
    EXPECT_EQ(grid.Rows(), 1);
    EXPECT_EQ(headers(grid), EnglishHeaders);
    EXPECT_EQ(selection(grid), (std::array{0, 0, 0, 0}));
    for (QPushButton* b : {&edit, &del, &start, &print}) EXPECT_FALSE(b->isEnabled());
    EXPECT_TRUE(lblSubDir.isHidden() && txtSubDir.isHidden());
    EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(RunTableTest, ClearRunTableGoesOnWhenTheHeadersFail) {
    useCharsetText("70000");
    clearRunTable();
    EXPECT_EQ(dialogs.shown,
              (std::vector<Shown>{{Shown::Box, BoxStyle::Plain, "Overflow", "SetColumnHeaders"}}));
    EXPECT_EQ(grid.Rows(), 1);
    EXPECT_EQ(headers(grid), QStringList(10, QString()));  // Clear wiped them
    EXPECT_TRUE(!print.isEnabled() && txtSubDir.isHidden());
}

TEST_F(RunTableTest, ClearFrmOrqEntresRereadsTheOperators) {
    struct Case {
        QByteArray ini;  // empty: no file
        QStringList listed;
        QStringList boxTitles;
    };
    for (const Case& c : {
             Case{"[Operators]\nNumOperators=3\nOperator1=Ann\nOperator3=Cy\n",
                  {"Ann", "-1", "Cy"},
                  {}},
             Case{"[Operators]\nNumOperators=2 people\nOperator1=Ann\nOperator2=Bo\n",
                  {"Ann", "Bo"},
                  {}},
             Case{"[Operators]\nOperator1=Ann\n", {}, {}},
             Case{"", {}, {}},
             Case{"[Operators]\nNumOperators=40000\n", {}, {"ClearFrmOrqEntres"}},
         }) {
        App.GlblIniFile =
            c.ini.isEmpty() ? config.file("none.ini") : config.write("ORQ.INI", c.ini);
        App.GlblOperator = "Bob";
        dialogs.shown.clear();
        QComboBox combo;
        combo.addItems({"Old1", "Old2"});
        combo.setCurrentIndex(1);
        QSignalSpy clicks(&combo, &QComboBox::currentIndexChanged);
        ClearFrmOrqEntres(combo);
        QStringList listed;
        for (int i = 0; i < combo.count(); ++i) listed << combo.itemText(i);
        EXPECT_EQ(listed, c.listed) << c.ini.constData();
        EXPECT_EQ(combo.currentIndex(), -1) << c.ini.constData();
        EXPECT_EQ(App.GlblOperator, "") << c.ini.constData();
        EXPECT_EQ(clicks.count(), 0) << c.ini.constData();
        EXPECT_EQ(dialogs.boxTitles(), c.boxTitles) << c.ini.constData();
    }
}

TEST_F(RunTableTest, RenumberingCountsRowsInSixteenBits) {
    grid.setTextArray(10 * 2, "17");
    RenumberRunTable(grid);
    EXPECT_EQ(QStringList({grid.TextArray(10), grid.TextArray(20), grid.TextArray(30)}),
              QStringList({"1", "2", "3"}));
    EXPECT_EQ(grid.TextArray(0), "Run");

    grid.setRows(32767);
    RenumberRunTable(grid);
    EXPECT_EQ(grid.TextArray(10 * 32766), "32766");
    auto renumberError = [&] {
        try {
            RenumberRunTable(grid);
        } catch (const RuntimeError& e) {
            return e.number();
        }
        return 0;
    };
    grid.setRows(32768);  // row 32,767 is written, then the counter overflows
    EXPECT_EQ(renumberError(), ErrOverflow);
    EXPECT_EQ(grid.TextArray(10 * 32767), "32767");
    grid.setRows(32769);
    grid.setTextArray(10, "");
    EXPECT_EQ(renumberError(), ErrOverflow);
    EXPECT_EQ(grid.TextArray(10), "");
}

TEST_F(RunTableTest, ColouringTakesTheFixedCellsAndSelectingTheRest) {
    ColorRunTableRow(grid, 2, RnTblColorAborted);
    EXPECT_EQ(selection(grid), (std::array{2, 0, 2, 1}));
    EXPECT_EQ(grid.FillStyle(), FillRepeat);
    EXPECT_EQ(grid.cellBackColor(2, 1), RnTblColorAborted);
    EXPECT_EQ(grid.cellBackColor(2, 2), GridDefaultColor);
    EXPECT_EQ(grid.cellBackColor(1, 0), GridDefaultColor);
    SelectRunTableRow(grid, 3);
    EXPECT_EQ(selection(grid), (std::array{3, 2, 3, 9}));
    SelectRunTableRow(grid, 2);
    EXPECT_EQ(grid.CellBackColor(), GridDefaultColor);  // the current cell is in column 2
}

}  // namespace
