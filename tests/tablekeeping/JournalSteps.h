#pragma once

#include <QRandomGenerator>
#include <QString>

#include "FlexGrid.h"
#include "RunTableColumns.h"

namespace sidekin::test {

// Step n of a made-up session on a run table: the edits an operator makes
// (add, change, move by add and remove, delete, clear) and what a walk does
// (colour a run, move the current run). The same n always does the same thing,
// so a test can replay the steps a killed process had made.
inline void journalStep(FlexGrid& grid, int step, int& currentRun) {
    QRandomGenerator random(quint32(step) * 7919u + 17u);
    const int rows = grid.Rows() - 1;
    const int pick = random.bounded(10);
    const auto anyRow = [&] { return 1 + random.bounded(rows); };
    if (rows == 0 || (pick < 4 && rows < 40)) {
        grid.AddItem(QStringLiteral("%1\tSample %2\tMETHOD\tID-%2\tGC Injector\t%3\tRUN%2\t1.5\t\t"
                                    "info \"%2\", ok")
                         .arg(rows + 1)
                         .arg(step)
                         .arg(step % 100));
    } else if (pick < 6) {
        grid.setTextMatrix(anyRow(), 1 + random.bounded(9), QStringLiteral("edit %1").arg(step));
    } else if (pick < 7 && rows > 1) {
        grid.RemoveItem(anyRow());
    } else if (pick < 9) {
        const int row = anyRow();
        grid.setRow(row);
        grid.setCol(0);
        grid.setRowSel(row);
        grid.setColSel(1);
        grid.setFillStyle(FillRepeat);
        grid.setCellBackColor(random.bounded(2) ? RnTblColorCompleted : RnTblColorAborted);
        currentRun = row;
    } else if (random.bounded(4) == 0) {
        grid.Clear();
        grid.setRows(1);
        currentRun = 0;
    }
    if (currentRun > grid.Rows() - 1) currentRun = 0;
}

}  // namespace sidekin::test
