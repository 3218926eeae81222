// Start-up time of the real program as the host starts it: from the exec of the
// process to the first paint of its main window inside the host simulator's
// window, in a display of its own (Xvfb). The start box is answered with a key
// press as soon as it shows. The window's load, with its half-second pause, runs
// while the box is up, so the box cannot close before the pause ends. Counted:
// exec to the box, and from the key press (or the pause's end, if later) to the
// first paint. Beside it, as its floor, the same from exec to first paint of
// bare_window, a Qt program with one label, in the same display, started after
// each start of the program. Usage: startup_bench [--runs N]
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

#include "BenchSupport.h"

using namespace sidekin::bench;

namespace {

constexpr double LoadPauseMs = 500.0;

bool waitFor(const std::function<bool()>& done, int ms) {
    const auto until = Steady::now() + std::chrono::milliseconds(ms);
    while (!done()) {
        if (Steady::now() > until) return false;
        QThread::msleep(10);
    }
    return true;
}

QString readAll(const QString& file) {
    QFile in(file);
    return in.open(QIODevice::ReadOnly) ? QString::fromLatin1(in.readAll()) : QString();
}

bool windowShown(const QString& name) {
    QProcess search;
    search.start("xdotool", {"search", "--onlyvisible", "--name", name});
    search.waitForFinished(2000);
    return search.exitCode() == 0 && !search.readAllStandardOutput().trimmed().isEmpty();
}

struct Start {
    double toBox = -1, afterBox = -1;
};

double nowNs() {
    return double(std::chrono::duration_cast<std::chrono::nanoseconds>(
                      std::chrono::system_clock::now().time_since_epoch())
                      .count());
}

// A script in the folder that notes the time in file "spawned" and execs the program.
QString timedWrapper(const QTemporaryDir& folder, const QString& program) {
    const QString wrapper = folder.filePath("timed");
    QFile script(wrapper);
    script.open(QIODevice::WriteOnly);
    script.write(QStringLiteral("#!/bin/sh\ndate +%s%N > '%1'\nexec '%2' \"$@\"\n")
                     .arg(folder.filePath("spawned"), program)
                     .toUtf8());
    script.close();
    script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return wrapper;
}

// Both programs run in the display with the same platform, fonts and report file.
QProcessEnvironment startEnvironment(const QTemporaryDir& folder, const QString& display) {
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert("DISPLAY", display);
    env.insert("QT_QPA_PLATFORM", "xcb");
    env.insert("SIDEKIN_STARTUP_REPORT", folder.filePath("report"));
    return env;
}

Start oneStart(const QString& display, int run) {
    QTemporaryDir folder;
    const QString wrapper = timedWrapper(folder, SIDEKIN_EXE);
    const QString spawned = folder.filePath("spawned");
    const QString report = folder.filePath("report");

    QProcess host;
    QProcessEnvironment env = startEnvironment(folder, display);
    env.insert("ZENTROVAR_CONFIG_DIR", folder.path());
    host.setProcessEnvironment(env);
    host.setProcessChannelMode(QProcess::MergedChannels);
    host.setStandardOutputFile(folder.filePath("host.out"));
    host.start(HOSTSIM_EXE, {"--root", folder.filePath("host"), "--write-ini", "--service",
                             QStringLiteral("StartupBench%1").arg(run), "--program-dir",
                             folder.filePath("host/program"), "--launch", wrapper});
    Start start;
    if (waitFor([] { return windowShown("VB DDE Error"); }, 20000)) {
        const double pressNs = nowNs();
        QProcess::execute("xdotool", {"key", "Return"});
        if (waitFor([&] { return !readAll(report).isEmpty(); }, 20000)) {
            const QStringList fields = readAll(report).trimmed().split(' ');
            const double shownNs = fields.value(1).toDouble();
            const double boxNs = fields.value(3).toDouble();
            const double spawnedNs = readAll(spawned).trimmed().toDouble();
            start.toBox = (boxNs - spawnedNs) / 1e6;
            start.afterBox = (shownNs - std::max(pressNs, boxNs + LoadPauseMs * 1e6)) / 1e6;
        }
    }
    if (start.afterBox < 0)
        std::fprintf(stderr, "%s\n", qPrintable(readAll(folder.filePath("host.out"))));
    host.write("show 00\nquit\n");
    if (!host.waitForFinished(5000)) host.kill();
    host.waitForFinished(2000);
    return start;
}

// Exec to first paint of the bare window, ms; negative if it did not paint.
double bareStart(const QString& display) {
    QTemporaryDir folder;
    QProcess bare;
    bare.setProcessEnvironment(startEnvironment(folder, display));
    bare.setProcessChannelMode(QProcess::ForwardedChannels);
    bare.start(timedWrapper(folder, BARE_WINDOW_EXE), {});
    const QString report = folder.filePath("report");
    double ms = -1;
    if (waitFor([&] { return !readAll(report).isEmpty(); }, 20000)) {
        const double shownNs = readAll(report).trimmed().split(' ').value(1).toDouble();
        ms = (shownNs - readAll(folder.filePath("spawned")).trimmed().toDouble()) / 1e6;
    }
    bare.terminate();
    if (!bare.waitForFinished(3000)) bare.kill();
    bare.waitForFinished(2000);
    return ms;
}

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments();
    const int runs = args.contains("--runs") ? args.value(args.indexOf("--runs") + 1).toInt() : 10;

    QProcess xvfb;
    QTemporaryDir runtime;
    qputenv("XDG_RUNTIME_DIR", runtime.path().toUtf8());
    xvfb.start("Xvfb",
               {"-displayfd", "1", "-screen", "0", "1280x800x24", "-nolisten", "tcp", "-noreset"});
    if (!xvfb.waitForReadyRead(10000)) {
        std::fprintf(stderr, "startup_bench: Xvfb did not start\n");
        return 1;
    }
    const QString display = ":" + QString::fromLatin1(xvfb.readAllStandardOutput()).trimmed();
    qputenv("DISPLAY", display.toUtf8());

    std::vector<double> toBox, afterBox, total, bare;
    for (int run = 0; run < runs; ++run) {
        const Start start = oneStart(display, run);
        if (start.afterBox < 0) {
            std::fprintf(stderr, "startup_bench: start %d did not show the main window\n", run + 1);
            return 1;
        }
        toBox.push_back(start.toBox);
        afterBox.push_back(start.afterBox);
        total.push_back(start.toBox + start.afterBox);
        bare.push_back(bareStart(display));
        if (bare.back() < 0) {
            std::fprintf(stderr, "startup_bench: the bare window did not paint\n");
            return 1;
        }
    }
    std::printf("%d starts each, ms                       min   median      max\n", runs);
    for (const auto& [name, values] : {std::pair{"exec to start box", toBox},
                                       {"box to main window", afterBox},
                                       {"beyond the pause", total},
                                       {"floor: bare Qt window, exec to paint", bare}}) {
        const Stats s = summarize(values);
        std::printf("%-36s %8.1f %8.1f %8.1f\n", name, s.min, s.median, s.max);
    }
    std::printf("Sidekin's start = %.1f × a bare Qt window's start (medians, beyond the pause)\n",
                summarize(total).median / summarize(bare).median);
    xvfb.terminate();
    xvfb.waitForFinished(3000);
    return 0;
}
