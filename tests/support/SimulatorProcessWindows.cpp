#include <windows.h>

#include "SimulatorProcess.h"

namespace sidekin::test {

namespace {

using ProcessCall = LONG(NTAPI*)(HANDLE);

// ntdll's own calls stop and resume every thread of a process at once.
void call(const char* name, qint64 pid) {
    const auto function = reinterpret_cast<ProcessCall>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("ntdll.dll"), name)));
    HANDLE process = OpenProcess(PROCESS_SUSPEND_RESUME, FALSE, static_cast<DWORD>(pid));
    if (function && process) function(process);
    if (process) CloseHandle(process);
}

}  // namespace

// The test's time limit ends Wine, and the simulator with it.
void endWithTest(QProcess&) {}

void freeze(qint64 pid) { call("NtSuspendProcess", pid); }

void thaw(qint64 pid) { call("NtResumeProcess", pid); }

}  // namespace sidekin::test
