#include <QAbstractItemModelTester>
#include <QHeaderView>
#include <QSignalSpy>
#include <QTest>
#include <set>

#include "FlexGridView.h"
#include "RunTable.h"
#include "StartupFixture.h"

using namespace sidekin;
using namespace sidekin::test;

namespace {

QStringList testerFailures;
void collectFailures(QtMsgType, const QMessageLogContext&, const QString& message) {
    if (message.contains("FAIL")) testerFailures << message;
}

class FlexGridViewTest : public StartupFixture {
protected:
    void SetUp() override {
        StartupFixture::SetUp();
        SetColumnHeaders(grid());
        for (const char* name : {"A", "B", "C", "D"}) grid().AddItem(QStringLiteral("0\t") + name);
        RenumberRunTable(grid());
        view.resize(700, 300);
    }
    void show() {
        view.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    }
    FlexGrid& grid() { return view.grid(); }
    FlexGridModel& model() { return view.gridModel(); }
    void click(int gridRow, int col, Qt::KeyboardModifiers keys = {}) {
        QTableView* part = col < 2 ? view.fixedColumnsView() : &view;
        QTest::mouseClick(part->viewport(), Qt::LeftButton, keys,
                          part->visualRect(model().indexOfCell(gridRow, col)).center());
        QCoreApplication::processEvents();
    }
    std::array<int, 4> selection() {
        return {grid().Row(), grid().Col(), grid().RowSel(), grid().ColSel()};
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

    FlexGridView view;
};

TEST_F(FlexGridViewTest, ModelStaysConsistentThroughEveryGridOperation) {
    testerFailures.clear();
    const QtMessageHandler previous = qInstallMessageHandler(collectFailures);
    {
        QAbstractItemModelTester tester(&model(),
                                        QAbstractItemModelTester::FailureReportingMode::Warning);
        grid().AddItem("0\tE");
        grid().AddItem("0\tF", 2);
        grid().AddItem("0\tAbove the header", 0);
        grid().RemoveItem(3);
        grid().setRows(12);
        grid().setRows(3);
        grid().setTextArray(25, "x");
        ColorRunTableRow(grid(), 2, RnTblColorCompleted);
        grid().Clear();
        grid().setFormatString("a|<b|<c");
        SetColumnHeaders(grid());
    }
    qInstallMessageHandler(previous);
    EXPECT_TRUE(testerFailures.isEmpty()) << testerFailures.join('\n').toStdString();
}

TEST_F(FlexGridViewTest, ModelShowsRunsHeadersAndColours) {
    ColorRunTableRow(grid(), 2, RnTblColorCompleted);
    ColorRunTableRow(grid(), 3, RnTblColorAborted);
    ColorRunTableRow(grid(), 4, RnTblColorFileExists);
    EXPECT_EQ(model().rowCount(), 4);
    EXPECT_EQ(model().headerData(6, Qt::Horizontal).toString(), "Data File");
    EXPECT_EQ(model().index(1, 1).data().toString(), "B");
    const QPalette palette = QGuiApplication::palette();
    auto back = [&](int gridRow, int col) {
        return model().indexOfCell(gridRow, col).data(Qt::BackgroundRole).value<QBrush>().color();
    };
    EXPECT_EQ(back(1, 0), palette.color(QPalette::Button));
    EXPECT_EQ(back(1, 2), palette.color(QPalette::Base));
    EXPECT_EQ(back(2, 1), QColor(255, 255, 192));  // pale yellow
    EXPECT_EQ(back(3, 0), QColor(255, 128, 128));  // salmon
    EXPECT_EQ(back(4, 0), QColor(192, 255, 255));  // pale cyan
    EXPECT_EQ(back(2, 2), palette.color(QPalette::Base));
    EXPECT_FALSE(model().index(0, 1).flags() & Qt::ItemIsSelectable);
}

TEST_F(FlexGridViewTest, GridChangesReachViewsAsSmallSignals) {
    QSignalSpy inserted(&model(), &QAbstractItemModel::rowsInserted);
    QSignalSpy changed(&model(), &QAbstractItemModel::dataChanged);
    QSignalSpy resets(&model(), &QAbstractItemModel::modelReset);
    grid().AddItem("0\tX", 3);
    ASSERT_EQ(inserted.count(), 1);
    EXPECT_EQ(inserted[0][1].toInt(), 2);  // model rows start below the header
    RenumberRunTable(grid());
    EXPECT_EQ(changed.count(), 5);
    changed.clear();
    ColorRunTableRow(grid(), 2, RnTblColorCompleted);
    ASSERT_EQ(changed.count(), 1);
    EXPECT_EQ(changed[0][1].toModelIndex(), model().indexOfCell(2, 1));
    SetColumnHeaders(grid());
    EXPECT_EQ(resets.count(), 0);
    grid().setFormatString("Run|<Sample");
    EXPECT_EQ(resets.count(), 1);
}

TEST_F(FlexGridViewTest, ShownSelectionFollowsTheGrid) {
    SelectRunTableRow(grid(), 3);
    view.syncSelection();
    EXPECT_EQ(shown(), (std::pair{std::set{3}, std::set{2, 3, 4, 5, 6, 7, 8, 9}}));
    ColorRunTableRow(grid(), 2, RnTblColorCompleted);  // fixed cells are never highlighted
    QCoreApplication::processEvents();
    EXPECT_TRUE(view.selectionModel()->selectedIndexes().isEmpty());
}

TEST_F(FlexGridViewTest, OperatorClicksMoveTheGridSelection) {
    show();
    QSignalSpy selChange(&view, &FlexGridView::SelChange);
    SelectRunTableRow(grid(), 1);
    QCoreApplication::processEvents();
    EXPECT_EQ(selChange.count(), 0);
    click(2, 4);
    EXPECT_EQ(selection(), (std::array{2, 4, 2, 4}));
    click(4, 6, Qt::ShiftModifier);
    EXPECT_EQ(selection(), (std::array{2, 4, 4, 6}));
    EXPECT_EQ(shown(), (std::pair{std::set{2, 3, 4}, std::set{4, 5, 6}}));
    click(1, 3, Qt::ShiftModifier);
    EXPECT_EQ(selection(), (std::array{2, 4, 1, 3}));  // the block starts where the click was
    click(3, 0);  // a fixed cell picks the row's scrolling cells
    EXPECT_EQ(selection(), (std::array{3, 2, 3, 9}));
    EXPECT_EQ(selChange.count(), 4);
}

TEST_F(FlexGridViewTest, SelChangeHandlerCanNarrowTheBlock) {
    show();
    QObject::connect(&view, &FlexGridView::SelChange, [&] {
        if (grid().Rows() >= 2 && grid().RowSel() != grid().Row()) grid().setRowSel(grid().Row());
    });
    click(1, 3);
    click(3, 5, Qt::ShiftModifier);
    EXPECT_EQ(selection(), (std::array{1, 3, 1, 5}));
    EXPECT_EQ(shown(), (std::pair{std::set{1}, std::set{3, 4, 5}}));
}

TEST_F(FlexGridViewTest, DoubleClickSeesTheSelectionItMade) {
    show();
    int rowSelSeen = -1;
    QObject::connect(&view, &FlexGridView::DblClick, [&] { rowSelSeen = grid().RowSel(); });
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {},
                       view.visualRect(model().indexOfCell(3, 2)).center());
    EXPECT_EQ(rowSelSeen, 3);
}

TEST_F(FlexGridViewTest, ColumnsFitTheirHeadersAndTwoStayFixed) {
    view.resize(350, 200);
    show();
    const QFontMetrics metrics(view.horizontalHeader()->font());
    for (int c = 0; c < 10; ++c)
        EXPECT_GE(view.columnWidth(c), metrics.horizontalAdvance(grid().TextArray(c))) << c;
    QTableView* fixed = view.fixedColumnsView();
    for (int c = 0; c < 10; ++c) EXPECT_EQ(fixed->isColumnHidden(c), c >= 2) << c;
    EXPECT_EQ(fixed->width(), view.columnWidth(0) + view.columnWidth(1));
    view.scrollTo(model().indexOfCell(1, 9));
    view.scrollTo(model().indexOfCell(1, 2));
    EXPECT_GE(view.visualRect(model().indexOfCell(1, 2)).left(), fixed->width());
}

}  // namespace
