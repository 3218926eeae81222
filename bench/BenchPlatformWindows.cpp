#include <windows.h>

#include <cstdio>

#include "BenchPlatform.h"
#include "BenchSupport.h"

namespace sidekin::bench {

namespace {

double seconds(const FILETIME& kernel, const FILETIME& user) {
    auto ticks = [](const FILETIME& t) {
        return (static_cast<unsigned long long>(t.dwHighDateTime) << 32) | t.dwLowDateTime;
    };
    return (ticks(kernel) + ticks(user)) / 1e7;  // 100 ns ticks
}

double cpuOf(HANDLE process) {
    FILETIME created, ended, kernel, user;
    if (!GetProcessTimes(process, &created, &ended, &kernel, &user)) return 0;
    return seconds(kernel, user);
}

}  // namespace

// The C run-time here has no line buffering: each line goes out as written.
void lineBufferedOutput() { std::setvbuf(stdout, nullptr, _IONBF, 0); }

// The process's own standard input pipe: control lines go from the main thread only.
bool prepareControl(QProcess&, const QString&, int* pipe) {
    *pipe = -1;
    return true;
}

void writeControl(QProcess& process, int, const QByteArray& bytes) {
    process.write(bytes);
    process.waitForBytesWritten(1000);
}

void closeControl(int) {}

double cpuSeconds() { return cpuOf(GetCurrentProcess()); }

double processCpuSeconds(const QProcess& process) {
    HANDLE handle = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE,
                                static_cast<DWORD>(process.processId()));
    if (!handle) return 0;
    const double cpu = cpuOf(handle);
    CloseHandle(handle);
    return cpu;
}

}  // namespace sidekin::bench
