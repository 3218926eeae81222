// Prints run tables of 100 and 1,000 runs with long sample information to a
// PDF file through PrintTable: time, processor time, pages and file size.
// With --demo FILE it prints the demo operator's small table to FILE instead,
// for the picture in docs/printing.md.
#include <QApplication>
#include <QComboBox>
#include <QFileInfo>
#include <QLineEdit>
#include <QPrinter>
#include <QTemporaryDir>
#include <cstdio>

#include "AppState.h"
#include "BenchSupport.h"
#include "FlexGridView.h"
#include "FrmOrq.h"
#include "G11n.h"
#include "PrinterObject.h"
#include "RunTablePrint.h"
#include "UnloadForms.h"

using namespace sidekin;
using namespace sidekin::bench;

namespace {

struct Run {
    const char *sample, *method, *type, *vial;
};
const Run runs[] = {
    {"Solvent Blank", "FRONTSTD", "17044", "1"},    {"Calibration Mix", "FRONTSTD", "17044", "2"},
    {"Calibration Mix", "FRONTFAST", "17044", "3"}, {"Process Gas", "VALVEGAS", "17047", "0"},
    {"Hand Injection", "MANUAL", "17048", "0"},     {"Solvent Blank", "BACKSTD", "17045", "4"},
};

const char* longInformation =
    "Lot 2311-B, received cold and kept at 4 C until opened; diluted 1:10 in hexane with "
    "the internal standard added before the split.\r\nSecond injection of the same vial if "
    "the first shows carry-over from the previous calibration run. Reported to the shift lead.";

void fillTable(int rows, bool longInfo) {
    FlexGrid& grid = frmORQ().fgrdRunTable->grid();
    grid.setRows(1);
    for (int row = 1; row <= rows; ++row) {
        const Run& r = runs[(row - 1) % std::size(runs)];
        grid.AddItem(QStringList{QString::number(row), r.sample, r.method,
                                 QStringLiteral("S-%1").arg(row, 4, 10, QLatin1Char('0')),
                                 GetResourceString(QByteArray(r.type).toInt()), r.vial,
                                 QStringLiteral("AV%1").arg(row, 5, 10, QLatin1Char('0')), "1.0",
                                 "0.05", ""}
                         .join(QLatin1Char('\t')));
        QString information;
        if (longInfo || row == 3)
            information = QString::fromLatin1(longInformation);
        else if (row % 2)
            information = QStringLiteral("Weighed by hand, see logbook p. 12");
        grid.setTextMatrix(row, 9, information);
    }
}

struct Printed {
    double ms, cpuMs;
    int pages;
    qint64 bytes;
};

Printed printTo(const QString& file) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(file);
    PagePrinter pdf([&] { return &printer; });
    setPrinter(&pdf);
    const double cpu = cpuSeconds();
    const auto start = Steady::now();
    PrintTable();
    Printed p{std::chrono::duration<double, std::milli>(Steady::now() - start).count(),
              (cpuSeconds() - cpu) * 1000, pdf.pages(), QFileInfo(file).size()};
    setPrinter(nullptr);
    return p;
}

}  // namespace

int main(int argc, char** argv) {
    prepareEnvironment();
    QApplication app(argc, argv);
    const FormsLifetime forms;
    QuietDialogs dialogs;
    NLSInitialization();
    App.GlblInstrument = 1;
    frmORQ().cboOperator->addItem(QStringLiteral("Avery"));
    frmORQ().txtSubDir->setText(QStringLiteral("Avery_20261122"));

    const QStringList args = app.arguments();
    if (args.size() == 3 && args[1] == QLatin1String("--demo")) {
        fillTable(std::size(runs), false);
        const Printed p = printTo(args[2]);
        std::printf("%s: %d page(s), %lld bytes\n", qPrintable(args[2]), p.pages, p.bytes);
        unloadFrmORQ();
        return dialogs.boxes == 0 ? 0 : 1;
    }

    QTemporaryDir folder;
    std::printf("runs    print ms  cpu ms  ms/run  pages  KiB\n");
    for (int rows : {100, 1000}) {
        fillTable(rows, true);
        const Printed p = printTo(folder.filePath(QStringLiteral("table.pdf")));
        std::printf("%5d %10.1f %7.1f %7.3f %6d %5lld\n", rows, p.ms, p.cpuMs, p.ms / rows, p.pages,
                    p.bytes / 1024);
    }
    if (dialogs.boxes)
        std::printf("unexpected boxes: %s\n", qPrintable(dialogs.unexpected.join(", ")));
    unloadFrmORQ();
    return dialogs.boxes == 0 ? 0 : 1;
}
