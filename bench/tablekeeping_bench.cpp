// Keeping the run table: the journal's cost per change of tables of
// 10, 1,000 and 10,000 runs beside the crash-safe write floor (a one-byte file
// through the same temporary, fsync, rename, folder fsync), and worklist imports
// of 1,000 and 10,000 rows against the host simulator process, where each row
// has the host's name check.
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <cstdio>

#include "BenchSupport.h"
#include "FlexGridModel.h"
#include "FlexGridView.h"
#include "FrmOrq.h"
#include "G11n.h"
#include "RunTable.h"
#include "TableJournal.h"
#include "TableKeeping.h"
#include "UnloadForms.h"
#include "WorklistCsv.h"
#include "platform/SafeFile.h"

using namespace sidekin;
using namespace sidekin::bench;

namespace {

double ms(Steady::time_point from, Steady::time_point to) {
    return std::chrono::duration<double, std::milli>(to - from).count();
}

void printStats(const char* what, const Stats& s) {
    std::printf("%-28s %6zu %8.3f %8.3f %8.3f %8.3f\n", what, s.count, s.min, s.median, s.p99,
                s.max);
}

QString runLine(int row) {
    return QStringList{QString::number(row),
                       "Solvent Blank",
                       "FRONTSTD",
                       "S",
                       "Front Tower",
                       "1",
                       QStringLiteral("R%1").arg(row, 5, 10, QLatin1Char('0')),
                       "1.5",
                       "",
                       "information of the run"}
        .join(u'\t');
}

void journalCost(const QString& folder) {
    std::printf("Crash-safe write, ms\n%-28s %6s %8s %8s %8s %8s\n", "", "count", "min", "median",
                "p99", "max");
    std::vector<double> floor;
    for (int i = 0; i < 200; ++i) {
        const auto start = Steady::now();
        replaceFileSafely(folder + "/floor", "x");
        floor.push_back(ms(start, Steady::now()));
    }
    printStats("floor: 1 byte", summarize(floor));
    for (int rows : {10, 1000, 10000}) {
        FlexGrid grid(1, 10, 1, 2);
        FlexGridModel model(grid);
        for (int r = 1; r <= rows; ++r) grid.AddItem(runLine(r));
        TableJournal journal(model, folder + QStringLiteral("/journal-%1.json").arg(rows), {});
        journal.flush();
        std::vector<double> times;
        for (int i = 0; i < 200; ++i) {
            const auto start = Steady::now();
            grid.setTextMatrix(1 + i % rows, 3, QStringLiteral("S%1").arg(i));
            journal.flush();
            times.push_back(ms(start, Steady::now()));
        }
        const QByteArray label = QByteArray::number(rows) + " runs: change + journal";
        printStats(label.constData(), summarize(times));
    }
}

void importRows(int rows, const QString& folder) {
    HostProcess host;
    ProgramSession session;
    if (!session.connect(host, false)) {
        std::printf("%6d: no connection\n", rows);
        return;
    }
    frmORQ().cboOperator->setCurrentText(QStringLiteral("Training"));
    ClearRunTable(frmORQ());
    std::vector<QStringList> records{{"Sample", "Method", "Sample ID", "Vial", "Data File"}};
    for (int r = 1; r <= rows; ++r)
        records.push_back({"Calibration Mix", "FRONTSTD", "S", "2",
                           QStringLiteral("W%1").arg(r, 5, 10, QLatin1Char('0'))});
    const QString path = folder + QStringLiteral("/worklist-%1.csv").arg(rows);
    replaceFileSafely(path, writeCsv(records));
    const auto start = Steady::now();
    ImportWorklistFile(path);
    const double total = ms(start, Steady::now());
    const int added = frmORQ().fgrdRunTable->grid().Rows() - 1;
    std::printf("%6d %6d %10.1f %10.3f  %d unexpected boxes\n", rows, added, total,
                total / qMax(added, 1), int(session.dialogs.unexpected.size()) - 1);
}

}  // namespace

int main(int argc, char** argv) {
    prepareEnvironment();
    QApplication app(argc, argv);
    const FormsLifetime forms;
    QTemporaryDir folder(QDir::currentPath() + QStringLiteral("/tablekeeping-bench-XXXXXX"));
    journalCost(folder.path());
    std::printf(
        "\nWorklist import with the host's name check per row, ms (the one box counted "
        "is the import's report)\n%6s %6s %10s %10s\n",
        "rows", "added", "total", "per row");
    for (int rows : {1000, 10000}) importRows(rows, folder.path());
    return 0;
}
