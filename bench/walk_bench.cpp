// The program's own cost of a walk through the run table against a simulator
// whose runs take no time; the check for existing data files; and the
// processor time while a run is in progress and the program only waits.
#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "AppState.h"
#include "BenchSupport.h"
#include "CPLinks.h"
#include "DataFileCheck.h"
#include "FlexGridView.h"
#include "FrmOrq.h"
#include "G11n.h"
#include "RunTable.h"
#include "UnloadForms.h"

using namespace sidekin;
using namespace sidekin::bench;

namespace {

double seconds(Steady::time_point from, Steady::time_point to) {
    return std::chrono::duration<double>(to - from).count();
}

QString dataFileName(int row) { return QStringLiteral("R%1").arg(row, 5, 10, QLatin1Char('0')); }

void fillTable(int rows) {
    FlexGrid& grid = frmORQ().fgrdRunTable->grid();
    const QString front = GetResourceString(17044);
    const QString back = GetResourceString(17045);
    for (int row = 1; row <= rows; ++row) {
        const bool isFront = row % 2;
        const QStringList cells{QString::number(row),
                                QStringLiteral("Diesel"),
                                isFront ? QStringLiteral("FRONTSTD") : QStringLiteral("BACKSTD"),
                                QStringLiteral("S-") + dataFileName(row),
                                isFront ? front : back,
                                isFront ? QStringLiteral("5") : QStringLiteral("7"),
                                dataFileName(row),
                                QStringLiteral("1.5"),
                                QString(),
                                QString()};
        grid.AddItem(cells.join(QLatin1Char('\t')));
    }
}

struct Walk {
    int rows = 0;
    bool finished = false;
    int completed = 0;       // rows coloured as completed
    int hostStarts = 0;      // ORQ_HOST_START frames the simulator received
    double walk = 0;         // Start to the walk's end (idle again)
    double clickReturn = 0;  // Start to the return of the Start click
    double total = 0;        // Start to the end of the outermost wait (stack unwound)
    int runningSeen = 0;     // RUNNING values the program read
    double cpu = 0;
    Stats perRun;        // seconds between one Completed and the next
    int depth = 0;       // deepest nesting of run engine events
    double stackKb = 0;  // stack taken by that nesting
    int unexpectedBoxes = 0;
};

Walk walk(int rows, int limitSeconds) {
    Walk w;
    w.rows = rows;
    HostProcess host({"--run-seconds", "0"});
    ProgramSession session;
    // Heard before the run control, so the times are those of arrival.
    std::vector<Steady::time_point> completions;
    int nesting = 0;
    std::uintptr_t outermost = 0;
    QObject hook;
    QObject::connect(cpLinks().ddeRunEngineStatus, &QLineEdit::textChanged, &hook,
                     [&](const QString& value) {
                         if (value.startsWith(QLatin1String("Completed")))
                             completions.push_back(Steady::now());
                         if (value.startsWith(QLatin1String("RUNNING"))) ++w.runningSeen;
                         const auto here = reinterpret_cast<std::uintptr_t>(&value);
                         if (++nesting == 1) outermost = here;
                         if (nesting > w.depth) {
                             w.depth = nesting;
                             w.stackKb = (outermost - here) / 1024.0;
                         }
                     });
    if (!session.connect(host)) {
        std::printf("the simulator or the program did not come up\n");
        return w;
    }
    Steady::time_point idleAt{};
    EventWait idle([] { return App.GlblRunState == RunStateIdle; });
    QObject::connect(cpLinks().ddeRunEngineStatus, &QLineEdit::textChanged, &hook, [&] {
        --nesting;
        if (App.GlblRunState == RunStateIdle && idleAt == Steady::time_point{})
            idleAt = Steady::now();
        idle.poke();
    });

    fillTable(rows);
    serveUntil([] { return false; }, 0);

    const double cpu0 = cpuSeconds();
    const auto t0 = Steady::now();
    completions.push_back(t0);
    frmORQ().cmdStartPauseResume->click();
    w.clickReturn = seconds(t0, Steady::now());
    // Checked between turns of the outermost loop only: true once every nested wait has ended.
    w.finished = idle.run(limitSeconds * 1000);
    w.total = seconds(t0, Steady::now());
    w.cpu = cpuSeconds() - cpu0;
    w.walk = seconds(t0, idleAt == Steady::time_point{} ? Steady::now() : idleAt);

    FlexGrid& grid = frmORQ().fgrdRunTable->grid();
    for (int row = 1; row < grid.Rows(); ++row)
        if (grid.cellBackColor(row, 0) == RnTblColorCompleted) ++w.completed;
    w.hostStarts = host.framesContaining("ORQ_HOST_START");
    std::vector<double> gaps;
    for (std::size_t i = 1; i < completions.size(); ++i)
        gaps.push_back(seconds(completions[i - 1], completions[i]));
    w.perRun = summarize(gaps);
    w.unexpectedBoxes = static_cast<int>(session.dialogs.unexpected.size());
    if (!w.finished) frmORQ().cmdStop->click();
    return w;
}

void printWalk(const Walk& w) {
    std::printf(
        "%6d %4s %7.2f %6.0f %9.3f %6.2f %6.2f %6.2f %6.1f %7.2f %7.2f %6d %6d %6d %5d %7.0f %3d\n",
        w.rows, w.finished ? "yes" : "NO", w.walk, w.completed / w.walk, w.walk * 1000.0 / w.rows,
        w.cpu * 1000.0 / w.rows, w.perRun.median * 1000.0, w.perRun.p99 * 1000.0,
        w.perRun.max * 1000.0, w.clickReturn, w.total, w.completed, w.hostStarts, w.runningSeen,
        w.depth, w.stackKb, w.unexpectedBoxes);
}

void dataFileCheck() {
    constexpr int Rows = 10000;
    constexpr int Calls = 5;
    HostProcess host({"--run-seconds", "0"});
    ProgramSession session;
    if (!session.connect(host)) return;
    fillTable(Rows);
    serveUntil([] { return false; }, 0);
    QTemporaryDir data;
    const QString folder = data.filePath(QStringLiteral("Batch7"));
    QDir().mkpath(folder);
    for (int row = 10; row <= Rows; row += 10)
        QDir().mkdir(folder + u'/' + dataFileName(row) + ".d");

    std::vector<double> times;
    int reported = 0;
    for (int call = 0; call < Calls; ++call) {
        App.GlblDataDir = data.path() + u'/';
        App.GlblCurrentRun = 0;
        const auto t0 = Steady::now();
        const QString report = DataFileExits();
        serveUntil([] { return false; }, 0);
        times.push_back(seconds(t0, Steady::now()));
        reported = static_cast<int>(report.count(QLatin1Char('\r')));
    }
    const Stats s = summarize(times);
    std::printf(
        "\nDataFileExits over %d rows, %d existing data files, main window shown (%d calls):\n",
        Rows, Rows / 10, Calls);
    std::printf("  per call: median %.1f ms, max %.1f ms; per row %.2f us; files reported %d\n",
                s.median * 1000.0, s.max * 1000.0, s.median * 1e6 / Rows, reported);
}

void waitingRun() {
    constexpr int RunSeconds = 10;
    HostProcess host({"--run-seconds", QString::number(RunSeconds)});
    ProgramSession session;
    if (!session.connect(host)) return;
    fillTable(1);
    int timeValues = 0;
    QObject hook;
    QObject::connect(cpLinks().ddeStatusTime, &QLineEdit::textChanged, &hook,
                     [&] { ++timeValues; });
    EventWait idle([] { return App.GlblRunState == RunStateIdle; });
    QObject::connect(cpLinks().ddeRunEngineStatus, &QLineEdit::textChanged, &hook,
                     [&] { idle.poke(); });
    const double cpu0 = cpuSeconds();
    const auto t0 = Steady::now();
    frmORQ().cmdStartPauseResume->click();
    const auto started = Steady::now();
    const double cpuStarted = cpuSeconds();
    const bool finished = idle.run((RunSeconds + 20) * 1000);
    const double wall = seconds(t0, Steady::now());
    const double cpu = cpuSeconds() - cpu0;
    const double waitWall = seconds(started, Steady::now());
    const double waitCpu = cpuSeconds() - cpuStarted;
    std::printf("\nOne run of %d s (--run-seconds %d), main window shown:\n", RunSeconds,
                RunSeconds);
    std::printf("  Start to idle: %.2f s wall, %.3f s cpu (%.2f%% of a core)%s\n", wall, cpu,
                100.0 * cpu / wall, finished ? "" : "  NOT FINISHED");
    std::printf(
        "  of which waiting for the end of the run: %.2f s wall, %.3f s cpu (%.3f%% of a core);\n"
        "  %d time values received\n",
        waitWall, waitCpu, 100.0 * waitCpu / waitWall, timeValues);
}

}  // namespace

int main(int argc, char** argv) {
    std::vector<int> sizes{100, 1000};
    bool full = false;
    bool walksOnly = false;
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--full") == 0) {
            full = true;
            sizes.push_back(10000);
        } else if (std::strcmp(argv[i], "--rows") == 0 && i + 1 < argc) {
            if (!walksOnly) sizes.clear();
            walksOnly = full = true;
            sizes.push_back(std::clamp(std::atoi(argv[++i]), 1, 30000));
        }
    }
    prepareEnvironment();
    QApplication app(argc, argv);
    const FormsLifetime forms;
    std::printf(
        "Walks through the run table against zentrovar-hostsim --run-seconds 0\n"
        "(the front end's own overhead; main window shown, offscreen).\n");
    std::printf("%6s %4s %7s %6s %9s %6s %6s %6s %6s %7s %7s %6s %6s %6s %5s %7s %3s\n", "rows",
                "done", "walk s", "runs/s", "s/1000 rw", "cpu ms", "run ms", "p99", "max",
                "click s", "unwound", "green", "starts", "RUNNING", "depth", "stack KB", "box");
    for (int rows : sizes) printWalk(walk(rows, 90 + rows / 100));
    if (!full) std::printf("(10,000 rows: run with --full)\n");
    std::printf(
        "walk s: Start to the walk's end (idle); s/1000 rw: walk s per 1,000 rows; cpu ms:\n"
        "processor time per run, Start to unwound; run ms: one Completed to the next (median,\n"
        "p99, max); click s: Start to the return of the Start click; unwound: Start to the end\n"
        "of every nested wait (a RUNNING the program never read costs a 45 s wait);\n"
        "green: rows coloured completed; starts: ORQ_HOST_START received by the simulator;\n"
        "RUNNING: RUNNING values the program read; depth: deepest nesting of run engine\n"
        "events; stack KB: stack those nested events took; box: boxes other than the\n"
        "start-up one.\n");

    if (walksOnly) return 0;
    dataFileCheck();
    waitingRun();
    return 0;
}
