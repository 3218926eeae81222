#pragma once

// What the benchmarks against the host simulator share: the simulator as a
// process, the program's link and main window on it, and small measuring tools.
#include <QEventLoop>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>
#include <chrono>
#include <functional>
#include <vector>

#include "OperatorDialogs.h"

namespace sidekin::bench {

using Steady = std::chrono::steady_clock;

// Offscreen platform and a private runtime folder; call before QApplication.
void prepareEnvironment();

// Serves events until done() holds or ms have passed; answers done().
bool serveUntil(const std::function<bool()>& done, int ms);

// Serves events until done() holds, without waking up on its own as serveUntil
// does: done() is looked at only when poke() is called (from a signal the
// caller connects) and before the wait. One wait per object.
class EventWait {
public:
    explicit EventWait(std::function<bool()> done) : done_(std::move(done)) {}
    void poke();
    // Also safe from another thread.
    void pokeLater();
    bool run(int ms);

private:
    std::function<bool()> done_;
    QEventLoop loop_;
};

// User plus system processor seconds of this process so far.
double cpuSeconds();

struct Stats {
    std::size_t count = 0;
    double min = 0, median = 0, p99 = 0, max = 0, mean = 0;
};
Stats summarize(std::vector<double> values);

// Answers every box at once, as an operator pressing the default button would,
// and counts them instead of writing them to the log.
class QuietDialogs : public DefaultAnswers {
public:
    QuietDialogs();
    ~QuietDialogs() override;

    BoxAnswer messageBox(BoxStyle style, const QString& text, const QString& title) override;
    QString inputBox(const QString& prompt, const QString& title,
                     const QString& defaultText) override;

    // Boxes other than the start-up "VB DDE Error", with their titles.
    QStringList unexpected;
    int boxes = 0;
    BoxAnswer yesNoAnswer = BoxAnswer::No;
};

// The host simulator as a process in a temporary folder. Its standard input is
// a named pipe, so control lines can be written from any thread with no help
// from the event loop (on Windows its own pipe, written from the main thread);
// its standard output goes to a file.
class HostProcess {
public:
    explicit HostProcess(const QStringList& extraArguments = {});
    ~HostProcess();

    bool started() const { return ready_; }
    const QString& service() const { return service_; }
    QString configFolder() const { return folder_.path(); }
    QString dataFolder() const { return folder_.filePath(QStringLiteral("host/data/")); }
    qint64 pid() const { return process_.processId(); }
    // One control line; the line end is added. Safe from any thread but on Windows.
    void control(const QByteArray& line);
    // Lines of the frame log that contain the text.
    int framesContaining(const QByteArray& text) const;
    // Processor seconds the simulator has used so far.
    double cpuSeconds() const;

private:
    QTemporaryDir folder_;
    QProcess process_;
    QString service_;
    int pipe_ = -1;
    bool ready_ = false;
};

// The program's shared state, item feed and main window, connected to a host as
// at start-up; everything is unloaded again at the end.
class ProgramSession {
public:
    ProgramSession();
    ~ProgramSession();

    // Wires the status and run events, opens the item feed and waits for the
    // main window; selects the first operator and subdirectory "Batch7".
    bool connect(const HostProcess& host, bool showWindow = true);

    QuietDialogs dialogs;
};

}  // namespace sidekin::bench
