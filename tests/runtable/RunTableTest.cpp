#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <array>
#include <functional>
#include <set>

#include "AppState.h"
#include "ErrorOf.h"
#include "FlexGridModel.h"
#include "FlexGridView.h"
#include "G11n.h"
#include "RunTable.h"
#include "StartupFixture.h"

using namespace sidekin;
using namespace sidekin::test;

namespace {

// Column 1 of the rows below the header: each run's name.
QStringList names(const FlexGrid& grid) {
    QStringList out;
    for (int r = 1; r < grid.Rows(); ++r) out << grid.TextMatrix(r, 1);
    return out;
}

void fill(FlexGrid& grid, const QString& letters) {
    for (QChar c : letters) grid.AddItem(QStringLiteral("0\t") + c + QStringLiteral("\tM"));
}

bool showsHeaderTexts(const FlexGrid& grid) {
    for (int c = 0; c < 10; ++c)
        if (grid.TextArray(c) != GetResourceString(17025 + c)) return false;
    return grid.Cols() == 10;
}

std::array<int, 4> selection(const FlexGrid& g) {
    return {g.Row(), g.Col(), g.RowSel(), g.ColSel()};
}

TEST(FlexGridTest, FlatIndexAndItsBounds) {
    FlexGrid grid;
    fill(grid, "A");
    grid.AddItem("0\t1\t\t3\t4\t5\t6\t7\t8\t9\textra");  // 3 rows x 10 columns
    grid.setTextArray(10 * 1 + 9, "last");
    EXPECT_EQ(QStringList({grid.TextArray(11), grid.TextArray(22), grid.TextArray(29)}),
              QStringList({"A", "", "9"}));
    EXPECT_EQ(grid.TextMatrix(1, 9), "last");
    const std::tuple<const char*, int, std::function<void()>> cases[] = {
        {"read past the last cell", ErrSubscript, [&] { grid.TextArray(30); }},
        {"write past the last cell", ErrSubscript, [&] { grid.setTextArray(30, "x"); }},
        {"negative index", ErrSubscript, [&] { grid.TextArray(-1); }},
        {"Row beyond", ErrSubscript, [&] { grid.setRow(3); }},
        {"Row negative", ErrSubscript, [&] { grid.setRow(-1); }},
        {"RowSel beyond", ErrSubscript, [&] { grid.setRowSel(3); }},
        {"Col beyond", ErrSubscript, [&] { grid.setCol(10); }},
        {"ColSel beyond", ErrSubscript, [&] { grid.setColSel(10); }},
        {"cell beyond", ErrSubscript, [&] { grid.setTextMatrix(2, 10, "x"); }},
        {"alignment beyond", ErrSubscript, [&] { grid.ColAlignment(10); }},
        {"insert beyond the end", ErrSubscript, [&] { grid.AddItem("x", 4); }},
        {"remove beyond the end", ErrSubscript, [&] { grid.RemoveItem(3); }},
        {"remove the header", ErrInvalidCall, [&] { grid.RemoveItem(0); }},
        {"no rows at all", ErrInvalidCall, [&] { grid.setRows(0); }},
        {"FillStyle 2", ErrInvalidCall, [&] { grid.setFillStyle(2); }},
    };
    for (const auto& [name, number, action] : cases) EXPECT_EQ(errorOf(action), number) << name;
    grid.RemoveItem(1);
    EXPECT_EQ(errorOf([&] { grid.RemoveItem(1); }), ErrInvalidCall) << "the last run";
}

TEST(FlexGridTest, RowsGoInAndOutAtTheirIndex) {
    const std::tuple<const char*, std::function<void(FlexGrid&)>, QStringList> cases[] = {
        {"append", [](FlexGrid& g) { g.AddItem("0\tX"); }, {"A", "B", "C", "X"}},
        {"at the end", [](FlexGrid& g) { g.AddItem("0\tX", 4); }, {"A", "B", "C", "X"}},
        {"first", [](FlexGrid& g) { g.AddItem("0\tX", 1); }, {"X", "A", "B", "C"}},
        {"between", [](FlexGrid& g) { g.AddItem("0\tX", 3); }, {"A", "B", "X", "C"}},
        {"remove first", [](FlexGrid& g) { g.RemoveItem(1); }, {"B", "C"}},
        {"remove last", [](FlexGrid& g) { g.RemoveItem(3); }, {"A", "B"}},
        {"fewer rows", [](FlexGrid& g) { g.setRows(2); }, {"A"}},
        {"more rows", [](FlexGrid& g) { g.setRows(6); }, {"A", "B", "C", "", ""}},
    };
    for (const auto& [name, operation, expected] : cases) {
        FlexGrid grid;
        fill(grid, "ABC");
        operation(grid);
        EXPECT_EQ(names(grid), expected) << name;
    }
}

TEST(FlexGridTest, FillStyleDecidesHowFarAColourReaches) {
    FlexGrid grid;
    fill(grid, "ABCDE");
    grid.setRow(4);  // block given from its lower right corner: rows 2-4, columns 1-3
    grid.setCol(3);
    grid.setRowSel(2);
    grid.setColSel(1);
    grid.setCellBackColor(0x8080FF);  // single: the current cell only
    EXPECT_EQ(grid.cellBackColor(4, 3), 0x8080FFu);
    EXPECT_EQ(grid.cellBackColor(2, 1), GridDefaultColor);
    grid.setFillStyle(FillRepeat);
    grid.setCellBackColor(0xC0FFFF);
    for (auto [r, c] : {std::pair{2, 1}, {4, 3}, {3, 2}})
        EXPECT_EQ(grid.cellBackColor(r, c), 0xC0FFFFu) << r << "," << c;
    for (auto [r, c] : {std::pair{1, 1}, {5, 3}, {2, 0}, {4, 4}})
        EXPECT_NE(grid.cellBackColor(r, c), 0xC0FFFFu) << r << "," << c;
}

TEST(FlexGridTest, ColoursStayWithTheirCellsAndGoWithARebuiltRow) {
    FlexGrid grid;
    fill(grid, "ABCD");
    for (int r : {2, 4}) ColorRunTableRow(grid, r, 0xC0FFFF);  // B and D
    grid.AddItem("0\tX", 1);
    grid.RemoveItem(4);
    grid.AddItem("0\tY", 4);
    EXPECT_EQ(names(grid), QStringList({"X", "A", "B", "Y", "D"}));
    auto colored = [&](int r) { return grid.cellBackColor(r, 1) == 0xC0FFFFu; };
    EXPECT_TRUE(colored(3) && colored(5));
    EXPECT_FALSE(colored(1) || colored(2) || colored(4));
    // A move writes the row anew from its text: B one place down.
    QStringList line;
    for (int c = 0; c < grid.Cols(); ++c) line << grid.TextMatrix(3, c);
    grid.AddItem(line.join('\t'), 5);
    grid.RemoveItem(3);
    EXPECT_EQ(names(grid), QStringList({"X", "A", "Y", "B", "D"}));
    EXPECT_FALSE(colored(4));
    EXPECT_TRUE(colored(5));
}

TEST(FlexGridTest, SelectionAfterEachOperation) {
    FlexGrid grid;
    EXPECT_EQ(selection(grid), (std::array{0, 2, 0, 2}));
    fill(grid, "ABCD");
    grid.setRow(2);
    grid.setRowSel(4);
    grid.setColSel(9);
    grid.setCol(5);  // a new current cell is the whole selection again
    EXPECT_EQ(selection(grid), (std::array{2, 5, 2, 5}));
    grid.setRowSel(4);
    grid.AddItem("0\tX", 1);
    EXPECT_EQ(selection(grid), (std::array{2, 5, 4, 5}));
    grid.RemoveItem(5);  // below the block: nothing moves
    EXPECT_EQ(selection(grid), (std::array{2, 5, 4, 5}));
    grid.RemoveItem(4);  // the block ended on the last row: its end moves up
    EXPECT_EQ(selection(grid), (std::array{2, 5, 3, 5}));
    grid.setRows(2);
    EXPECT_EQ(selection(grid), (std::array{1, 5, 1, 5}));
    grid.setFormatString("Run|<Sample|<Method");  // fewer columns pull the selection in
    EXPECT_EQ(selection(grid), (std::array{1, 2, 1, 2}));
}

class RunTableTest : public StartupFixture {
protected:
    void SetUp() override {
        StartupFixture::SetUp();
        SetColumnHeaders(grid);
        for (int i = 0; i < 3; ++i) grid.AddItem("0\tOil\tFAME");
    }
    void clearRunTable() {
        ClearRunTable(grid, {&edit, &del, &start, &print, &lblSubDir, &txtSubDir});
    }

    FlexGrid grid{1, 2};
    QPushButton edit, del, start, print;
    QLabel lblSubDir;
    QLineEdit txtSubDir;
};

TEST_F(RunTableTest, HeadersTakeTheCharsetOfTheTexts) {
    for (auto [text, charset] :
         {std::pair<QByteArray, int>{"128", 128}, {" 134 GB2312", 134}, {"Western", 0}}) {
        useTexts("17320=" + text + "\n17025=Lauf\n");
        SetColumnHeaders(grid);
        EXPECT_EQ(App.GlblFontCharset, charset) << text.constData();
        EXPECT_EQ(grid.FontCharset(), charset) << text.constData();
        EXPECT_EQ(grid.TextArray(0), "Lauf");
    }
    EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(RunTableTest, ClearRunTableLeavesAnEmptyTableWithHeadersEvenWhenTheyFail) {
    ColorRunTableRow(grid, 1, RnTblColorAborted);
    SelectRunTableRow(grid, 3);
    clearRunTable();
    EXPECT_EQ(grid.Rows(), 1);
    EXPECT_TRUE(showsHeaderTexts(grid));
    EXPECT_EQ(selection(grid), (std::array{0, 0, 0, 0}));
    for (QPushButton* b : {&edit, &del, &start, &print}) EXPECT_FALSE(b->isEnabled());
    EXPECT_TRUE(lblSubDir.isHidden() && txtSubDir.isHidden());
    grid.AddItem("0\tOil");
    EXPECT_EQ(grid.cellBackColor(1, 0), GridDefaultColor);  // no colour comes back
    print.setEnabled(true);
    txtSubDir.show();
    useTexts("17320=70000\n");  // failing headers: the rest goes on
    clearRunTable();
    EXPECT_EQ(dialogs.shown,
              (std::vector<Shown>{{Shown::Box, BoxStyle::Plain, errorDescription(ErrOverflow),
                                   "SetColumnHeaders"}}));
    for (int c = 0; c < 10; ++c) EXPECT_EQ(grid.TextArray(c), "") << c;  // Clear wiped them
    EXPECT_TRUE(!print.isEnabled() && txtSubDir.isHidden());
}

TEST_F(RunTableTest, ClearFrmOrqEntresRereadsTheOperators) {
    const std::tuple<const char*, QByteArray, QStringList, QString> cases[] = {
        {"gaps", "NumOperators=3\nOperator1=Ann\nOperator3=Cy\n", {"Ann", "-1", "Cy"}, ""},
        {"count's number", "NumOperators=2 x\nOperator1=A\nOperator2=B\n", {"A", "B"}, ""},
        {"no count", "Operator1=Ann\n", {}, ""},
        {"count overflows", "NumOperators=40000\n", {}, "ClearFrmOrqEntres"},
    };
    for (const auto& [name, ini, listed, box] : cases) {
        App.GlblIniFile = config.write("ORQ.INI", "[Operators]\n" + ini);
        App.GlblOperator = "Bob";
        dialogs.shown.clear();
        QComboBox combo;
        combo.addItem("Old");
        bool clicked = false;
        QObject::connect(&combo, &QComboBox::currentIndexChanged, [&] { clicked = true; });
        ClearFrmOrqEntres(combo);
        QStringList items;
        for (int i = 0; i < combo.count(); ++i) items << combo.itemText(i);
        EXPECT_EQ(items, listed) << name;
        EXPECT_TRUE(combo.currentIndex() == -1 && App.GlblOperator.isEmpty() && !clicked) << name;
        EXPECT_EQ(dialogs.boxTitles().join(""), box) << name;
    }
}

TEST_F(RunTableTest, RenumberingCountsRowsInSixteenBits) {
    grid.setTextArray(10 * 2, "17");
    RenumberRunTable(grid);
    EXPECT_EQ(QStringList({grid.TextArray(0), grid.TextArray(20), grid.TextArray(30)}),
              QStringList({GetResourceString(17025), "2", "3"}));
    grid.setRows(32768);  // row 32,767 is written, then the counter overflows
    EXPECT_EQ(errorOf([&] { RenumberRunTable(grid); }), ErrOverflow);
    EXPECT_EQ(grid.TextArray(10 * 32767), "32767");
    grid.setRows(32769);  // a table too long fails before it writes anything
    grid.setTextArray(10, "");
    EXPECT_EQ(errorOf([&] { RenumberRunTable(grid); }), ErrOverflow);
    EXPECT_EQ(grid.TextArray(10), "");
}

class FlexGridViewTest : public StartupFixture {
protected:
    void SetUp() override {
        StartupFixture::SetUp();
        SetColumnHeaders(grid());
        for (const char* name : {"A", "B", "C", "D"}) grid().AddItem(QStringLiteral("0\t") + name);
        view.resize(700, 300);
        view.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    }
    FlexGrid& grid() { return view.grid(); }
    FlexGridModel& model() { return view.gridModel(); }
    using Press = void (*)(QWidget*, Qt::MouseButton, Qt::KeyboardModifiers, QPoint, int);
    void click(int gridRow, int col, Qt::KeyboardModifiers keys = {},
               Press press = &QTest::mouseClick) {
        QTableView* part = col < 2 ? view.fixedColumnsView() : &view;
        press(part->viewport(), Qt::LeftButton, keys,
              part->visualRect(model().indexOfCell(gridRow, col)).center(), -1);
        QCoreApplication::processEvents();
    }
    // Grid rows and columns shown selected.
    std::pair<std::set<int>, std::set<int>> shown() {
        std::set<int> rows, cols;
        for (const QModelIndex& i : view.selectionModel()->selectedIndexes()) {
            rows.insert(model().gridRow(i));
            cols.insert(i.column());
        }
        return {rows, cols};
    }
    QColor back(int gridRow, int col) {
        return model().indexOfCell(gridRow, col).data(Qt::BackgroundRole).value<QBrush>().color();
    }

    FlexGridView view;
};

TEST_F(FlexGridViewTest, ShowsRunsColoursAndTheGridsSelection) {
    ColorRunTableRow(grid(), 2, 0x0000FF);  // red sits in the low byte
    QCoreApplication::processEvents();
    EXPECT_EQ(selection(grid()), (std::array{2, 0, 2, 1}));
    EXPECT_TRUE(view.selectionModel()->selectedIndexes().isEmpty()) << "fixed cells never show it";
    EXPECT_EQ(back(2, 1), QColor(Qt::red));  // the uncoloured cells: the pictures
    SelectRunTableRow(grid(), 3);
    view.syncSelection();
    EXPECT_EQ(selection(grid()), (std::array{3, 2, 3, 9}));
    EXPECT_EQ(shown(), (std::pair{std::set{3}, std::set{2, 3, 4, 5, 6, 7, 8, 9}}));
}

// A cell may hold a legacy system colour number (a hand-edited journal, too).
TEST(GridColourTest, SystemColoursTakeTheirPaletteRoles) {
    const std::pair<int, QPalette::ColorRole> roles[] = {
        {5, QPalette::Base},        {8, QPalette::Text},
        {13, QPalette::Highlight},  {14, QPalette::HighlightedText},
        {15, QPalette::Button},     {16, QPalette::Dark},
        {18, QPalette::ButtonText}, {20, QPalette::Light},
        {19, QPalette::Window}};
    QPalette palette;
    for (const auto& [index, role] : roles) palette.setColor(role, QColor(index * 12, 7, 9));
    for (const auto& [index, role] : roles)
        EXPECT_EQ(gridColorToQColor(SystemColorFlag | GridColor(index), palette),
                  QColor(index * 12, 7, 9))
            << index;
    EXPECT_EQ(gridColorToQColor(0x336699, palette), QColor(0x99, 0x66, 0x33));
}

TEST_F(FlexGridViewTest, OperatorClicksMoveTheGridSelection) {
    int selChanges = 0, rowSelAtDoubleClick = -1;
    QObject::connect(&view, &FlexGridView::SelChange, [&] { ++selChanges; });
    QObject::connect(&view, &FlexGridView::DblClick,
                     [&] { rowSelAtDoubleClick = grid().RowSel(); });
    SelectRunTableRow(grid(), 1);
    QCoreApplication::processEvents();
    EXPECT_EQ(selChanges, 0) << "the program's own moves are no operator event";
    click(2, 4);
    EXPECT_EQ(selection(grid()), (std::array{2, 4, 2, 4}));
    click(4, 4, Qt::ShiftModifier);
    click(4, 4);  // only the anchor moves
    EXPECT_EQ(selection(grid()), (std::array{4, 4, 4, 4}));
    click(2, 4);
    click(4, 6, Qt::ShiftModifier);
    EXPECT_EQ(selection(grid()), (std::array{2, 4, 4, 6}));
    EXPECT_EQ(shown(), (std::pair{std::set{2, 3, 4}, std::set{4, 5, 6}}));
    click(1, 3, Qt::ShiftModifier);
    EXPECT_EQ(selection(grid()), (std::array{2, 4, 1, 3}));  // the block starts where the click was
    click(3, 0);  // a fixed cell picks the row's scrolling cells
    EXPECT_EQ(selection(grid()), (std::array{3, 2, 3, 9}));
    EXPECT_GT(selChanges, 0);
    for (auto [row, col] : {std::pair{4, 2}, {2, 0}}) {  // either part of the grid
        click(row, col);                                 // a double click's first press
        click(row, col, {}, &QTest::mouseDClick);
        EXPECT_EQ(rowSelAtDoubleClick, row);
    }
}

TEST_F(FlexGridViewTest, TwoColumnsStayFixed) {
    view.resize(350, 200);
    QCoreApplication::processEvents();
    QTableView* fixed = view.fixedColumnsView();
    for (int c = 0; c < 10; ++c) EXPECT_EQ(fixed->isColumnHidden(c), c >= 2) << c;
    EXPECT_EQ(fixed->width(), view.columnWidth(0) + view.columnWidth(1));
    view.scrollTo(model().indexOfCell(1, 9));
    view.scrollTo(model().indexOfCell(1, 2));
    EXPECT_GE(view.visualRect(model().indexOfCell(1, 2)).left(), fixed->width());
}

}  // namespace
