// Latency from the simulator publishing a system status to the main window's
// label showing it, at rising rates; and the program's cost of one update.
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <atomic>
#include <cstdio>
#include <memory>
#include <thread>

#include "AppState.h"
#include "BenchSupport.h"
#include "CPLinks.h"
#include "FrmOrq.h"
#include "StatusDisplay.h"
#include "UnloadForms.h"

using namespace sidekin;
using namespace sidekin::bench;

namespace {

constexpr double PhaseSeconds = 3.0;
constexpr int DrainMs = 3000;

QByteArray statusLine(int n) {
    return "set GUISystemStatus$ 1|0|SysGreen|Ready|MthGreen|Waiting " + QByteArray::number(n);
}

std::int64_t nanos(Steady::time_point t) {
    return std::chrono::duration_cast<std::chrono::nanoseconds>(t.time_since_epoch()).count();
}

// Values 'Waiting <n>' as the label shows them, with the time each first showed.
class LabelWatch {
public:
    explicit LabelWatch(int capacity) : sent_(capacity), shown_(capacity) {
        for (auto& s : sent_) s = 0;
        QObject::connect(cpLinks().ddeSystemStatus, &QLineEdit::textChanged, &context_, [this] {
            const QString text = frmORQ().lblSysStatusMethod->text();
            const auto match = number_.match(text);
            if (!match.hasMatch()) return;
            const int n = match.captured(1).toInt();
            if (n < 0 || n >= static_cast<int>(shown_.size()) || n == last_) return;
            last_ = n;
            shown_[n] = nanos(Steady::now());
            if (wait) wait->poke();
        });
    }
    void sent(int n) { sent_[n] = nanos(Steady::now()); }
    // Poked whenever a new value shows.
    EventWait* wait = nullptr;
    int last() const { return last_; }
    std::int64_t sentAt(int n) const { return sent_[n]; }
    std::int64_t shownAt(int n) const { return shown_[n]; }

private:
    QObject context_;
    QRegularExpression number_{QStringLiteral("^Waiting (\\d+)\\s*$")};
    std::vector<std::atomic<std::int64_t>> sent_;
    std::vector<std::int64_t> shown_;
    int last_ = -1;
};

struct Phase {
    int rate = 0, sent = 0, seen = 0, backlog = 0;
    bool lastShown = false;
    double sendSeconds = 0, drainMs = 0, cpu = 0, hostCpu = 0;
    Stats latency;  // milliseconds
};

Phase runPhase(HostProcess& host, LabelWatch& watch, int rate, int& next) {
    Phase p;
    p.rate = rate;
    p.sent = static_cast<int>(rate * PhaseSeconds);
    const int first = next;
    const int last = first + p.sent - 1;
    next += p.sent;
    std::atomic<bool> done{false};
    EventWait sending([&] { return done.load(); });
    const double cpu0 = cpuSeconds();
    const double host0 = host.cpuSeconds();
    const auto t0 = Steady::now();
    std::thread writer([&] {
        const auto period = std::chrono::nanoseconds(1000000000LL / rate);
        for (int i = 0; i < p.sent; ++i) {
            std::this_thread::sleep_until(t0 + i * period);
            watch.sent(first + i);
            host.control(statusLine(first + i));
        }
        done = true;
        sending.pokeLater();
    });
    sending.run(static_cast<int>(PhaseSeconds * 1000) + 5000);
    writer.join();
    const auto sendEnd = Steady::now();
    p.sendSeconds = std::chrono::duration<double>(sendEnd - t0).count();
    p.backlog = last - std::max(watch.last(), first - 1);
    EventWait drained([&] { return watch.last() == last; });
    watch.wait = &drained;
    p.lastShown = drained.run(DrainMs);
    watch.wait = nullptr;
    p.drainMs = std::chrono::duration<double, std::milli>(Steady::now() - sendEnd).count();
    p.cpu = cpuSeconds() - cpu0;
    p.hostCpu = host.cpuSeconds() - host0;

    std::vector<double> latencies;
    for (int n = first; n <= last; ++n)
        if (watch.shownAt(n) != 0) latencies.push_back((watch.shownAt(n) - watch.sentAt(n)) / 1e6);
    p.seen = static_cast<int>(latencies.size());
    p.latency = summarize(latencies);
    return p;
}

// The program's own time for one update, without the link: the status box's
// change event, then the label's repaint.
void updateCost() {
    constexpr int Updates = 2000;
    QLineEdit& box = *cpLinks().ddeSystemStatus;
    auto value = [](int n) { return QStringLiteral("1|0|SysGreen|Ready|MthGreen|Cost %1").arg(n); };
    auto t0 = Steady::now();
    for (int i = 0; i < Updates; ++i) box.setText(value(i));
    const double handlerUs =
        std::chrono::duration<double, std::micro>(Steady::now() - t0).count() / Updates;
    serveUntil([] { return false; }, 0);
    t0 = Steady::now();
    for (int i = 0; i < Updates; ++i) {
        box.setText(value(Updates + i));
        QCoreApplication::processEvents();
    }
    const double withPaintUs =
        std::chrono::duration<double, std::micro>(Steady::now() - t0).count() / Updates;
    t0 = Steady::now();
    for (int i = 0; i < Updates; ++i)
        UpdateSystemStatus(
            i % 2 ? QStringLiteral("1|0|SysYellow|Run in Progress|MthGreen|Data Acquisition")
                  : QStringLiteral("1|0|SysGreen|Ready|MthGreen|Waiting for Injection"));
    const double updateUs =
        std::chrono::duration<double, std::micro>(Steady::now() - t0).count() / Updates;
    std::printf("\nCost of one update inside the program (%d each, main window shown):\n", Updates);
    std::printf("  UpdateSystemStatus alone:                       %8.1f us\n", updateUs);
    std::printf("  box change event (DDESystemStatus_Change):      %8.1f us\n", handlerUs);
    std::printf("  change event + serving events (repaint):        %8.1f us  (%.0f updates/s)\n",
                withPaintUs, 1e6 / withPaintUs);
}

}  // namespace

int main(int argc, char** argv) {
    prepareEnvironment();
    QApplication app(argc, argv);
    const FormsLifetime forms;
    HostProcess host;
    ProgramSession session;
    if (!session.connect(host)) {
        std::printf("the simulator or the program did not come up\n");
        return 1;
    }
    const int rates[] = {10, 100, 1000};
    int capacity = 1;
    for (int rate : rates) capacity += static_cast<int>(rate * PhaseSeconds);
    auto watch = std::make_unique<LabelWatch>(capacity + 1);
    int next = 0;
    // A first value, so the feed is known to be live.
    host.control(statusLine(next));
    watch->sent(next);
    if (!serveUntil([&] { return watch->last() == 0; }, 5000)) {
        std::printf("the first status value never reached the label: [%s] [%s]\n",
                    qPrintable(frmORQ().lblSysStatusMethod->text()),
                    qPrintable(cpLinks().ddeSystemStatus->text()));
        return 1;
    }
    ++next;

    std::printf(
        "System status from the simulator's control input to lblSysStatusMethod\n"
        "(set GUISystemStatus$ ...|Waiting <n>, distinct values, %.0f s per rate).\n",
        PhaseSeconds);
    std::printf("%6s %6s %6s %8s %8s %8s %8s %8s %7s %6s %9s %7s %8s\n", "rate/s", "sent", "seen",
                "min ms", "med ms", "p99 ms", "max ms", "backlog", "last", "drain", "cpu % core",
                "host %", "kept up");
    std::vector<Phase> phases;
    for (int rate : rates) {
        const Phase p = runPhase(host, *watch, rate, next);
        const double wall = p.sendSeconds + p.drainMs / 1000.0;
        const bool keptUp =
            p.lastShown && p.backlog <= std::max(1, rate / 100) && p.latency.p99 < 100.0;
        std::printf("%6d %6d %6d %8.2f %8.2f %8.2f %8.2f %8d %7s %5.0fms %9.2f %7.2f %8s\n", p.rate,
                    p.sent, p.seen, p.latency.min, p.latency.median, p.latency.p99, p.latency.max,
                    p.backlog, p.lastShown ? "shown" : "MISSING", p.drainMs, 100.0 * p.cpu / wall,
                    100.0 * p.hostCpu / wall, keptUp ? "yes" : "no");
    }
    std::printf(
        "seen: values the label showed (the item feed hands on every change in turn);\n"
        "latency: line written to the simulator -> label text set, over the values seen;\n"
        "backlog: values sent after the last one shown, at the moment sending stopped;\n"
        "last: whether the last value reached the label within %d ms (drain: how long);\n"
        "kept up: last shown, backlog <= max(1, rate/100) and p99 under 100 ms.\n",
        DrainMs);
    std::printf("boxes other than the start-up one: %lld\n",
                static_cast<long long>(session.dialogs.unexpected.size()));
    updateCost();
    return 0;
}
