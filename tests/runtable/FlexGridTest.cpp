#include <gtest/gtest.h>

#include <QStringList>
#include <array>
#include <functional>

#include "ErrorOf.h"
#include "FlexGrid.h"
#include "RuntimeError.h"

using namespace sidekin;
using sidekin::test::errorOf;

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

std::array<int, 4> selection(const FlexGrid& g) {
    return {g.Row(), g.Col(), g.RowSel(), g.ColSel()};
}

TEST(FlexGridTest, FlatIndexAndItsBounds) {
    FlexGrid grid;
    fill(grid, "AB");  // 3 rows x 10 columns
    grid.setTextArray(10 * 2 + 9, "last");
    EXPECT_EQ(grid.TextMatrix(2, 9), "last");
    EXPECT_EQ(grid.TextArray(10 * 1 + 1), "A");
    const std::tuple<const char*, int, std::function<void()>> cases[] = {
        {"read past the last cell", ErrSubscript, [&] { grid.TextArray(30); }},
        {"write past the last cell", ErrSubscript, [&] { grid.setTextArray(30, "x"); }},
        {"negative index", ErrSubscript, [&] { grid.TextArray(-1); }},
        {"Row beyond", ErrSubscript, [&] { grid.setRow(3); }},
        {"ColSel beyond", ErrSubscript, [&] { grid.setColSel(10); }},
        {"insert beyond the end", ErrSubscript, [&] { grid.AddItem("x", 4); }},
        {"remove beyond the end", ErrSubscript, [&] { grid.RemoveItem(3); }},
        {"remove the header", ErrInvalidCall, [&] { grid.RemoveItem(0); }},
        {"no rows at all", ErrInvalidCall, [&] { grid.setRows(0); }},
        {"FillStyle 2", ErrInvalidCall, [&] { grid.setFillStyle(2); }},
    };
    for (const auto& [name, number, action] : cases) EXPECT_EQ(errorOf(action), number) << name;
    grid.RemoveItem(1);
    EXPECT_EQ(errorOf([&] { grid.RemoveItem(1); }), ErrInvalidCall) << "the last run";
    EXPECT_EQ(names(grid), QStringList({"B"}));
}

TEST(FlexGridTest, RowsGoInAndOutAtTheirIndex) {
    const std::pair<std::function<void(FlexGrid&)>, QStringList> cases[] = {
        {[](FlexGrid& g) { g.AddItem("0\tX"); }, {"A", "B", "C", "X"}},
        {[](FlexGrid& g) { g.AddItem("0\tX", 4); }, {"A", "B", "C", "X"}},
        {[](FlexGrid& g) { g.AddItem("0\tX", 1); }, {"X", "A", "B", "C"}},
        {[](FlexGrid& g) { g.AddItem("0\tX", 3); }, {"A", "B", "X", "C"}},
        {[](FlexGrid& g) { g.RemoveItem(1); }, {"B", "C"}},
        {[](FlexGrid& g) { g.RemoveItem(2); }, {"A", "C"}},
        {[](FlexGrid& g) { g.RemoveItem(3); }, {"A", "B"}},
        {[](FlexGrid& g) { g.setRows(2); }, {"A"}},
        {[](FlexGrid& g) { g.setRows(6); }, {"A", "B", "C", "", ""}},
    };
    for (const auto& [operation, expected] : cases) {
        FlexGrid grid;
        grid.setFormatString("Run|<Sample");
        fill(grid, "ABC");
        operation(grid);
        EXPECT_EQ(names(grid), expected);
        EXPECT_EQ(grid.TextMatrix(0, 1), "Sample");
    }
}

TEST(FlexGridTest, LineFieldsFillColumnsInOrder) {
    FlexGrid grid;
    grid.AddItem("1\tS\t\tID");
    grid.AddItem("0\t1\t2\t3\t4\t5\t6\t7\t8\t9\textra");
    EXPECT_EQ(grid.TextArray(11), "S");
    EXPECT_EQ(grid.TextArray(12), "");
    EXPECT_EQ(grid.TextArray(13), "ID");
    EXPECT_EQ(grid.TextArray(29), "9");
}

TEST(FlexGridTest, ClearEmptiesEveryCellButKeepsTheShape) {
    FlexGrid grid;
    grid.setFormatString("Run|<Sample|<Method");
    fill(grid, "AB");
    grid.setRow(1);
    grid.setCellBackColor(0xC0FFFF);
    grid.Clear();
    EXPECT_EQ(grid.Rows(), 3);
    EXPECT_EQ(grid.Cols(), 3);
    for (int i = 0; i < 9; ++i) EXPECT_EQ(grid.TextArray(i), "") << i;
    EXPECT_EQ(grid.cellBackColor(1, 2), GridDefaultColor);
}

TEST(FlexGridTest, FormatStringSetsHeadersColumnsAndAlignment) {
    FlexGrid grid(1, 2);
    grid.AddItem("1\tA");
    grid.setFormatString("Run|<Sample|<Method|^Vial|>Amount|<6|<7|<8|<9|<Info");
    EXPECT_EQ(grid.Cols(), 10);
    EXPECT_EQ(grid.TextMatrix(0, 0), "Run");
    EXPECT_EQ(grid.TextMatrix(0, 9), "Info");
    EXPECT_EQ(grid.TextMatrix(1, 1), "A");
    EXPECT_EQ(grid.ColAlignment(0), GridAlignment::Left);
    EXPECT_EQ(grid.ColAlignment(3), GridAlignment::Center);
    EXPECT_EQ(grid.ColAlignment(4), GridAlignment::Right);
    grid.setRow(1);
    grid.setCol(9);
    grid.setFormatString("Run|<Sample|<Method");
    EXPECT_EQ(selection(grid), (std::array{1, 2, 1, 2}));
    EXPECT_EQ(grid.TextArray(3 * 1 + 1), "A");
}

TEST(FlexGridTest, FillStyleDecidesHowFarAColourReaches) {
    for (int style : {FillSingle, FillRepeat}) {
        FlexGrid grid;
        fill(grid, "ABCDE");
        // Block given from its lower right corner: rows 2-4, columns 1-3.
        grid.setRow(4);
        grid.setCol(3);
        grid.setRowSel(2);
        grid.setColSel(1);
        grid.setFillStyle(style);
        grid.setCellBackColor(0x8080FF);
        for (int r = 0; r < grid.Rows(); ++r)
            for (int c = 0; c < grid.Cols(); ++c) {
                const bool inBlock = r >= 2 && r <= 4 && c >= 1 && c <= 3;
                const bool expected = style == FillRepeat ? inBlock : (r == 4 && c == 3);
                EXPECT_EQ(grid.cellBackColor(r, c), expected ? 0x8080FFu : GridDefaultColor)
                    << "style " << style << " cell " << r << "," << c;
            }
    }
}

TEST(FlexGridTest, ColoursStayWithTheirCellsAndGoWithARebuiltRow) {
    FlexGrid grid;
    fill(grid, "ABCD");
    grid.setFillStyle(FillRepeat);
    for (int r : {2, 4}) {  // B and D, columns 0 and 1
        grid.setRow(r);
        grid.setCol(0);
        grid.setColSel(1);
        grid.setCellBackColor(0xC0FFFF);
    }
    grid.AddItem("0\tX", 1);
    grid.RemoveItem(4);
    grid.AddItem("0\tY", 4);
    EXPECT_EQ(names(grid), QStringList({"X", "A", "B", "Y", "D"}));
    auto colored = [&](int r) { return grid.cellBackColor(r, 1) == 0xC0FFFFu; };
    EXPECT_TRUE(colored(3) && colored(5));
    EXPECT_FALSE(colored(1) || colored(2) || colored(4));
    EXPECT_EQ(grid.cellBackColor(5, 2), GridDefaultColor);
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
    grid.setCol(2);
    grid.setRowSel(4);
    grid.setColSel(9);
    EXPECT_EQ(selection(grid), (std::array{2, 2, 4, 9}));
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
}

}  // namespace
