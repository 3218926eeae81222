#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <cerrno>
#include <csignal>
#include <cstdio>

#include "BenchPlatform.h"
#include "BenchSupport.h"

namespace sidekin::bench {

void lineBufferedOutput() { std::setvbuf(stdout, nullptr, _IOLBF, 0); }

// A named pipe, so that control lines can be written from any thread with no
// help from the event loop.
bool prepareControl(QProcess& process, const QString& fifoPath, int* pipe) {
    if (mkfifo(QFile::encodeName(fifoPath).constData(), 0600) != 0) return false;
    // Opened for reading and writing, so that neither end waits for the other.
    *pipe = ::open(QFile::encodeName(fifoPath).constData(), O_RDWR | O_CLOEXEC);
    if (*pipe < 0) return false;
    process.setStandardInputFile(fifoPath);
    // The simulator ends with the benchmark, even when the benchmark crashes.
    process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });
    return true;
}

void writeControl(QProcess&, int pipe, const QByteArray& bytes) {
    if (pipe < 0) return;
    qsizetype done = 0;
    while (done < bytes.size()) {
        const ssize_t n = ::write(pipe, bytes.constData() + done, bytes.size() - done);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return;
        done += n;
    }
}

void closeControl(int pipe) {
    if (pipe >= 0) ::close(pipe);
}

double cpuSeconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    auto seconds = [](const timeval& t) { return t.tv_sec + t.tv_usec / 1e6; };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

double processCpuSeconds(const QProcess& process) {
    QFile stat(QStringLiteral("/proc/%1/stat").arg(process.processId()));
    if (!stat.open(QIODevice::ReadOnly)) return 0;
    const QByteArray text = stat.readAll();
    // Fields after the command's closing parenthesis: state is field 3, utime 14, stime 15.
    const QList<QByteArray> fields = text.mid(text.lastIndexOf(')') + 2).split(' ');
    if (fields.size() < 13) return 0;
    const double ticks = static_cast<double>(sysconf(_SC_CLK_TCK));
    return (fields[11].toDouble() + fields[12].toDouble()) / ticks;
}

}  // namespace sidekin::bench
