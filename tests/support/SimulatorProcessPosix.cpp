#include <sys/prctl.h>
#include <sys/wait.h>

#include <csignal>

#include "SimulatorProcess.h"

namespace sidekin::test {

// Otherwise the simulator keeps the test runner waiting on the shared error output.
void endWithTest(QProcess& process) {
    process.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGTERM); });
}

void freeze(qint64 pid) {
    ::kill(static_cast<pid_t>(pid), SIGSTOP);
    siginfo_t stopped{};
    ::waitid(P_PID, static_cast<id_t>(pid), &stopped, WSTOPPED | WNOWAIT);
}

void thaw(qint64 pid) { ::kill(static_cast<pid_t>(pid), SIGCONT); }

}  // namespace sidekin::test
