// Times the grid operations the run table uses, at 10,000 and 32,767 rows,
// on the grid alone and with its Qt model and view attached.
#include <QApplication>
#include <chrono>
#include <cstdio>
#include <functional>
#include <memory>

#include "BenchSupport.h"
#include "FlexGrid.h"
#include "FlexGridView.h"
#include "RunTable.h"
#include "UnloadForms.h"

using namespace sidekin;

namespace {

using Clock = std::chrono::steady_clock;

double millis(const std::function<void()>& work) {
    const auto start = Clock::now();
    work();
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

QString runLine(int n) {
    return QString::number(n) +
           QStringLiteral(
               "\tOil\tFAME\tS-0042\tStandard\t12\tOIL000123\t1.5\t0.25\tfirst batch of the week");
}

QString lineOf(const FlexGrid& grid, int row) {
    QStringList cells;
    for (int c = 0; c < grid.Cols(); ++c) cells << grid.TextArray(grid.Cols() * row + c);
    return cells.join(QLatin1Char('\t'));
}

struct Figures {
    double appendTotal, appendEach, renumber, insertEach, removeEach, moveEach, colourAll;
};

Figures measure(FlexGrid& grid, int rows, const std::function<void()>& settle) {
    constexpr int middleOps = 200;
    constexpr int moves = 20;
    Figures f{};
    grid.setFormatString(
        QStringLiteral("Run|<Sample|<Method|<Sample ID|<Inj Type|<Vial|<Data File|<Sample "
                       "Amt|<ISTD Amt|<Sample Info"));
    f.appendTotal = millis([&] {
        for (int r = 1; r < rows; ++r) grid.AddItem(runLine(r));
        settle();
    });
    f.appendEach = f.appendTotal / (rows - 1);
    f.renumber = millis([&] {
        RenumberRunTable(grid);
        settle();
    });
    f.insertEach = millis([&] {
                       for (int i = 0; i < middleOps; ++i)
                           grid.AddItem(runLine(0), grid.Rows() / 2);
                       settle();
                   }) /
                   middleOps;
    f.removeEach = millis([&] {
                       for (int i = 0; i < middleOps; ++i) grid.RemoveItem(grid.Rows() / 2);
                       settle();
                   }) /
                   middleOps;
    // A move down as the main window does it: copy below, remove, renumber, select.
    f.moveEach = millis([&] {
                     for (int i = 0; i < moves; ++i) {
                         const int r = grid.Rows() / 2;
                         grid.AddItem(lineOf(grid, r), r + 2);
                         grid.RemoveItem(r);
                         RenumberRunTable(grid);
                         SelectRunTableRow(grid, static_cast<std::int16_t>(r + 1));
                     }
                     settle();
                 }) /
                 moves;
    // A pass like the check for existing data files: colour and select every row.
    f.colourAll = millis([&] {
        for (int r = 1; r < grid.Rows(); ++r) {
            ColorRunTableRow(grid, static_cast<std::int16_t>(r),
                             r % 3 ? RnTblColorNone : RnTblColorFileExists);
            SelectRunTableRow(grid, static_cast<std::int16_t>(r));
        }
        settle();
    });
    return f;
}

void print(int rows, const char* variant, const Figures& f) {
    std::printf("%6d  %-11s %9.1f %8.2f %10.2f %10.3f %10.3f %11.2f %11.1f\n", rows, variant,
                f.appendTotal, f.appendEach * 1000.0, f.renumber, f.insertEach, f.removeEach,
                f.moveEach, f.colourAll);
}

}  // namespace

int main(int argc, char** argv) {
    sidekin::bench::prepareEnvironment();
    QApplication app(argc, argv);
    const FormsLifetime forms;
    std::printf(
        "Run table grid: rows include the header row; times in milliseconds unless noted.\n");
    std::printf("%6s  %-11s %9s %8s %10s %10s %10s %11s %11s\n", "rows", "variant", "append",
                "us/row", "renumber", "insert/op", "remove/op", "move+renum", "colour all");
    for (int rows : {10000, 32767}) {
        {
            FlexGrid grid;
            print(rows, "grid only", measure(grid, rows, [] {}));
        }
        {
            FlexGridView view;
            view.resize(900, 400);
            view.show();
            QCoreApplication::processEvents();
            print(rows, "with view",
                  measure(view.grid(), rows, [] { QCoreApplication::processEvents(); }));
        }
    }
    std::printf(
        "insert/op, remove/op: in the middle of the table; move+renum: one row moved\n"
        "down, column 0 renumbered, row selected; colour all: every row coloured and\n"
        "selected as the data file check does.\n");
    return 0;
}
