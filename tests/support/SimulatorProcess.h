#pragma once

#include <QProcess>
#include <QStringList>
#include <functional>

#include "TempFolder.h"
#include "WaitUntil.h"

namespace sidekin::test {

// The host simulator as a real process, with its own demo set, frame log and
// zentrovar.ini in a temporary folder that also serves as the profile folder.
class SimulatorProcess {
public:
    explicit SimulatorProcess(QStringList extraArguments = {});
    ~SimulatorProcess();

    bool started() const { return ready_; }
    const QString& service() const { return service_; }
    QString configFolder() const { return folder_.path(); }
    QString dataFolder() const { return folder_.file("host/data/"); }

    qint64 pid() const { return process_.processId(); }
    // A control line on the simulator's standard input, e.g. "show 01"; returns once
    // the simulator has answered it, so the line is in force for the next frame.
    void control(const QString& line);
    // SIGKILL; returns once the process is gone.
    void kill();
    // Stops the process; returns once it is seen stopped. The end of the test thaws it.
    void freeze();
    void thaw();
    // The commands (Execute frames) the simulator received, in order, with their topics.
    QStringList executed() const;
    // Every frame received: "verb\ttopic\tname".
    QStringList frames() const;

private:
    TempFolder folder_;
    QProcess process_;
    QString service_;
    QByteArray out_;
    bool ready_ = false;
};

// The platform's part: a test killed by its time limit takes the process with it;
// stopping and resuming a process.
void endWithTest(QProcess& process);
void freeze(qint64 pid);
void thaw(qint64 pid);

}  // namespace sidekin::test
