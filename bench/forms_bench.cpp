// The entry forms against the host simulator process: from a method chosen to
// the vial list filled, per attached sampler; and one Add of 99 counter-named
// injections into run tables of growing size, beside its floor: the crash-safe
// counter write each injection makes, measured alone in the same folder.
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <cstdio>

#include "AppState.h"
#include "BenchSupport.h"
#include "EntryFormProcedures.h"
#include "EntryForms.h"
#include "FlexGridView.h"
#include "FrmOrq.h"
#include "G11n.h"
#include "MethodSelection.h"
#include "Profile.h"
#include "ProfileKeys.h"
#include "UnloadForms.h"
#include "platform/ProfileFile.h"

using namespace sidekin;
using namespace sidekin::bench;

namespace {

double ms(Steady::time_point from, Steady::time_point to) {
    return std::chrono::duration<double, std::milli>(to - from).count();
}

bool connectAsTraining(const HostProcess& host, ProgramSession& session) {
    if (!session.connect(host, false)) return false;
    frmORQ().cboOperator->setCurrentText(QStringLiteral("Training"));
    return true;
}

void methodToVials(const char* model, int rounds) {
    HostProcess host({"--model", model});
    ProgramSession session;
    if (!connectAsTraining(host, session)) {
        std::printf("%-5s: no connection\n", model);
        return;
    }
    FrmRnTblAdd& form = frmRnTblAdd();
    form.cboSample->setCurrentText(QStringLiteral("Solvent Blank"));
    form.cboMethod->setCurrentText(QStringLiteral("FRONTSTD"));
    std::vector<double> times;
    for (int i = 0; i < rounds; ++i) {
        const auto start = Steady::now();
        MethodClick(form);
        times.push_back(ms(start, Steady::now()));
    }
    const Stats s = summarize(times);
    std::printf("%-5s %6zu %8.3f %8.3f %8.3f %8.3f  %d entries, %d unexpected boxes\n", model,
                s.count, s.min, s.median, s.p99, s.max, form.cboVialNum->count(),
                int(session.dialogs.unexpected.size()));
}

void fillTable(int rows) {
    FlexGrid& grid = frmORQ().fgrdRunTable->grid();
    for (int row = 1; row <= rows; ++row) {
        const QString name = QStringLiteral("R%1").arg(row, 5, 10, QLatin1Char('0'));
        grid.AddItem(QStringList{QString::number(row), "Solvent Blank", "FRONTSTD", "S",
                                 GetResourceString(17044), "1", name, "", "", ""}
                         .join(QLatin1Char('\t')));
    }
}

// The pair's counter written back unchanged through the program's own profile
// write, so that the next name stays what it was; ms per write.
std::vector<double> counterWrites(int count) {
    const QString section = QStringLiteral("Solvent Blank,FRONTSTD");
    const QString value = GetPvtProfileStr(section, profile::DataFile, App.GlblIniFile);
    std::vector<double> times;
    for (int i = 0; i < count; ++i) {
        const auto start = Steady::now();
        if (WritePrivateProfileStringA(section, profile::DataFile, value, App.GlblIniFile) == 0)
            return {};
        times.push_back(ms(start, Steady::now()));
    }
    return times;
}

void addInjections(int tableRows) {
    HostProcess host;
    ProgramSession session;
    if (!connectAsTraining(host, session)) {
        std::printf("%6d: no connection\n", tableRows);
        return;
    }
    fillTable(tableRows);
    FrmRnTblAdd& form = frmRnTblAdd();
    form.cboSample->setCurrentText(QStringLiteral("Solvent Blank"));
    form.cboMethod->setCurrentText(QStringLiteral("FRONTSTD"));
    form.txtSampleID->setText(QStringLiteral("S1"));
    form.cboInjVial->setEditText(QStringLiteral("99"));
    const int before = frmORQ().fgrdRunTable->grid().Rows();
    const auto start = Steady::now();
    cmdAdd_Click();
    const double total = ms(start, Steady::now());
    const int added = frmORQ().fgrdRunTable->grid().Rows() - before;
    const Stats write = summarize(counterWrites(99));
    if (write.count == 0) {
        std::printf("%6d: the counter write failed\n", tableRows);
        return;
    }
    std::printf("%6d %6d %10.1f %10.3f %9.3f %8.3f %8.3f %10.1f  %d unexpected boxes\n", tableRows,
                added, total, total / added, write.min, write.median, write.max,
                added * write.median, int(session.dialogs.unexpected.size()));
    std::printf("       Add %d injections = %.1f × the %d crash-safe writes it must do\n", added,
                total / (added * write.median), added);
}

}  // namespace

int main(int argc, char** argv) {
    prepareEnvironment();
    QApplication app(argc, argv);
    const FormsLifetime forms;
    std::printf("Method chosen to vial list filled (MethodClick), ms\n");
    std::printf("model  count      min   median      p99      max\n");
    for (const char* model : {"4410", "4420", "4430", "none"}) methodToVials(model, 200);
    std::printf(
        "\ncmdAdd_Click of 99 counter-named injections, ms; one counter write alone\n"
        "(99 in a row, same file); floor = rows added × the median write\n");
    std::printf("%6s %6s %10s %10s %9s %8s %8s %10s\n", "rows", "added", "total", "per row",
                "write min", "median", "max", "floor");
    for (int rows : {0, 1000, 10000}) addInjections(rows);
    return 0;
}
