// Keeps a run table journal in argv[1] while making journalStep's changes for
// ever, printing each step's number once its table is written. The journal
// kill test ends it at random moments.
#include <QCoreApplication>
#include <cstdio>

#include "FlexGridModel.h"
#include "JournalSteps.h"
#include "TableJournal.h"

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    sidekin::FlexGrid grid(1, 10, 1, 2);
    sidekin::FlexGridModel model(grid);
    int currentRun = 0;
    sidekin::TableJournal journal(model, QString::fromLocal8Bit(argv[1]),
                                  [&](sidekin::RunTableSnapshot& table) {
                                      table.currentRun = currentRun;
                                      table.instrument = 4;
                                  });
    for (int step = 1;; ++step) {
        sidekin::test::journalStep(grid, step, currentRun);
        if (!journal.flush()) return 1;
        std::printf("%d\n", step);
        std::fflush(stdout);
    }
}
