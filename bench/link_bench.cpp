// Round trips of host requests over the link, and the processor time the
// program uses while it waits for a run to start, against a real simulator.
#include <QApplication>
#include <QLineEdit>
#include <cstdio>

#include "AppState.h"
#include "BenchSupport.h"
#include "CPLinks.h"
#include "FrmOrq.h"
#include "HostCommands.h"
#include "HostConversation.h"
#include "HostLink.h"
#include "LinkProtocol.h"
#include "LinkTextBox.h"
#ifndef _WIN32
#include "SocketFloor.h"
#endif
#include "UnloadForms.h"
#include "platform/Clock.h"
#include "platform/RuntimeError.h"

using namespace sidekin;
using namespace sidekin::bench;

namespace {

constexpr int KeptRequests = 10000;
constexpr int FreshRequests = 2000;
constexpr int Warmup = 200;
constexpr double WaitSeconds = 10.0;

double micros(Steady::time_point from, Steady::time_point to) {
    return std::chrono::duration<double, std::micro>(to - from).count();
}

void printRow(const char* what, const Stats& s) {
    std::printf("  %-44s %6zu %8.1f %8.1f %8.1f %8.1f %8.1f\n", what, s.count, s.min, s.median,
                s.p99, s.max, s.mean);
}

// The system clock, except that the first reading after arm() lies back by
// `back` seconds: the 45-second wait for a run start then lasts 45 - back.
class ShortenedClock : public sidekin::Clock {
public:
    void arm(float back) { back_ = back; }
    float secondsSinceMidnight() override {
        const QTime t = QTime::currentTime();
        const float now = static_cast<float>(t.msecsSinceStartOfDay() / 1000.0);
        const float back = back_;
        back_ = 0;
        return now - back;
    }
    QDateTime now() override { return QDateTime::currentDateTime(); }
    void pause(double seconds) override { system_->pause(seconds); }
    void waitForEvents(double maxSeconds) override { system_->waitForEvents(maxSeconds); }
    sidekin::Clock* system_ = nullptr;

private:
    float back_ = 0;
};

struct Wait {
    double wall = 0, cpu = 0, hostCpu = 0;
    int statusValues = 0, timeValues = 0;
};

void printWait(const char* what, const Wait& w) {
    std::printf("  %-44s %7.2f %8.3f %7.2f%% %6d %6d %9.3f\n", what, w.wall, w.cpu,
                100.0 * w.cpu / w.wall, w.statusValues, w.timeValues, w.hostCpu);
}

Wait measureWait(const HostProcess& host, const std::function<void()>& wait) {
    Wait w;
    QObject counter;
    QObject::connect(cpLinks().ddeSystemStatus, &QLineEdit::textChanged, &counter,
                     [&] { ++w.statusValues; });
    QObject::connect(cpLinks().ddeStatusTime, &QLineEdit::textChanged, &counter,
                     [&] { ++w.timeValues; });
    const double hostBefore = host.cpuSeconds();
    const double cpuBefore = cpuSeconds();
    const auto t0 = Steady::now();
    wait();
    w.wall = std::chrono::duration<double>(Steady::now() - t0).count();
    w.cpu = cpuSeconds() - cpuBefore;
    w.hostCpu = host.cpuSeconds() - hostBefore;
    return w;
}

}  // namespace

int main(int argc, char** argv) {
    prepareEnvironment();
    QApplication app(argc, argv);
    const FormsLifetime forms;
#ifdef _WIN32
    std::printf("Host link against zentrovar-hostsim (a separate process, DDE).\n\n");
#else
    std::printf("Host link against zentrovar-hostsim (a separate process, local socket).\n\n");
#endif

    {
        HostProcess host;
        ProgramSession session;
        if (!session.connect(host)) {
            std::printf("the simulator or the program did not come up\n");
            return 1;
        }
        std::printf("Request round trips of \"ShowORQ$\" on CPWAIT, microseconds:\n");
        std::printf("  %-44s %6s %8s %8s %8s %8s %8s\n", "", "count", "min", "median", "p99", "max",
                    "mean");

        // The same bytes as a request of the item and its answer, over a bare socket.
        const int askBytes = static_cast<int>(
            link::encode({link::Verb::Request, 1, link::TopicWait, QStringLiteral("ShowORQ$"), {}})
                .size());
        const int answerBytes = static_cast<int>(
            link::encode({link::Verb::Data, 1, {}, {}, QStringLiteral("11") + link::LineEnd})
                .size());
#ifdef _WIN32
        // Over DDE the frames are not ours: the floor is the Linux run's, printed there.
        (void)askBytes;
        (void)answerBytes;
        const Stats socketFloor;
#else
        const Stats socketFloor =
            summarize(socketPingPong(KeptRequests, Warmup, askBytes, answerBytes));
        printRow(qPrintable(QStringLiteral("socket floor: AF_UNIX ping-pong, %1 B / %2 B")
                                .arg(askBytes)
                                .arg(answerBytes)),
                 socketFloor);
#endif

        int failures = 0;
        QString value;
        {
            auto conversation = link::hostLink().open(host.service(), link::TopicWait);
            for (int i = 0; i < Warmup; ++i)
                conversation->request(link::TopicWait, QStringLiteral("ShowORQ$"), 60000);
            std::vector<double> times;
            times.reserve(KeptRequests);
            for (int i = 0; i < KeptRequests; ++i) {
                const auto t0 = Steady::now();
                try {
                    value =
                        conversation->request(link::TopicWait, QStringLiteral("ShowORQ$"), 60000);
                } catch (const RuntimeError&) {
                    ++failures;
                }
                times.push_back(micros(t0, Steady::now()));
            }
            const Stats kept = summarize(times);
            printRow("one conversation, request only", kept);
            if (socketFloor.count > 0)
                std::printf("  median request = %.1f × the socket floor (p99 %.1f ×)\n",
                            kept.median / socketFloor.median, kept.p99 / socketFloor.p99);
        }
        {
            std::vector<double> times;
            times.reserve(FreshRequests);
            for (int i = 0; i < FreshRequests; ++i) {
                const auto t0 = Steady::now();
                try {
                    auto conversation = link::hostLink().open(host.service(), link::TopicWait);
                    conversation->request(link::TopicWait, QStringLiteral("ShowORQ$"), 60000);
                } catch (const RuntimeError&) {
                    ++failures;
                }
                times.push_back(micros(t0, Steady::now()));
            }
            printRow("open + request + close, raw", summarize(times));
        }
        {
            std::vector<double> times;
            times.reserve(FreshRequests);
            for (int i = 0; i < FreshRequests; ++i) {
                const auto t0 = Steady::now();
                value = chooseService();
                times.push_back(micros(t0, Steady::now()));
            }
            printRow("chooseService() alone (reads zentrovar.ini)", summarize(times));
        }
        {
            LinkTextBox& box = *frmORQ().ddeDummy;
            for (int i = 0; i < Warmup; ++i) DDERequest(box, QStringLiteral("ShowORQ$"));
            std::vector<double> times;
            times.reserve(FreshRequests);
            for (int i = 0; i < FreshRequests; ++i) {
                const auto t0 = Steady::now();
                DDERequest(box, QStringLiteral("ShowORQ$"));
                times.push_back(micros(t0, Steady::now()));
            }
            printRow("DDERequest (fresh conversation each time)", summarize(times));
            value = box.text();
        }
        std::printf(
            "  last value \"%s\"; failed requests %d; boxes other than the start-up one %lld\n\n",
            qPrintable(value), failures, static_cast<long long>(session.dialogs.unexpected.size()));
    }

    // A check of the processor clock itself: the requests above cost some.
    std::printf("Processor time of this benchmark so far: %.3f s\n\n", cpuSeconds());
    std::printf("Processor time while waiting %.0f s (item feed open, main window shown):\n",
                WaitSeconds);
    std::printf("  %-44s %7s %8s %8s %6s %6s %9s\n", "", "wall s", "cpu s", "of core", "status",
                "time", "host cpu");
    {
        HostProcess host;
        ProgramSession session;
        if (!session.connect(host)) return 1;
        const Wait idle = measureWait(host, [] {
            const float start = Timer();
            const float end = start + static_cast<float>(WaitSeconds);
            float now = start;
            do {
                sidekin::clock().waitForEvents(end - now);
                now = Timer();
                if (now < start) now += 86400.0f;
            } while (now < end);
        });
        printWait("host idle, the run-start wait loop", idle);
    }
    {
        HostProcess host({"--run-seconds", "30", "--no-running"});
        ProgramSession session;
        if (!session.connect(host)) return 1;
        ShortenedClock shortened;
        shortened.system_ = &sidekin::clock();
        setClock(&shortened);
        // Labels follow the host's time only during a walk.
        App.GlblRunState = RunStateRunning;
        const Wait running = measureWait(host, [&] {
            shortened.arm(static_cast<float>(45.0 - WaitSeconds));
            DDEExecute_RunMethod(*frmORQ().ddeDummy, commands::HostStart(1));
        });
        setClock(nullptr);
        App.GlblRunState = RunStateIdle;
        printWait("run in progress, DDEExecute_RunMethod", running);
        std::printf("  RUNNING never comes (--no-running); the wait is cut from 45 s to %.0f s.\n",
                    WaitSeconds);
        std::printf(
            "  status/time: values of GUISystemStatus$ / GUIStatusTime$ received meanwhile;\n"
            "  the simulator publishes the elapsed time every 250 ms, as it changes\n"
            "  (one decimal of minutes, so every 6 s).\n");
        std::printf("  boxes other than the start-up one: %lld\n",
                    static_cast<long long>(session.dialogs.unexpected.size()));
    }
    return 0;
}
