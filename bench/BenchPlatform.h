#pragma once

// What the benchmarks ask of the platform, in BenchPlatformPosix.cpp or
// BenchPlatformWindows.cpp.
#include <QByteArray>
#include <QProcess>
#include <QString>

namespace sidekin::bench {

void lineBufferedOutput();
// Gives the process a standard input that control lines can be written to;
// *pipe is the platform's handle of it, -1 where the process's own is used.
bool prepareControl(QProcess& process, const QString& fifoPath, int* pipe);
void writeControl(QProcess& process, int pipe, const QByteArray& bytes);
void closeControl(int pipe);
double processCpuSeconds(const QProcess& process);

}  // namespace sidekin::bench
