#include "SimulatorProcess.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QTimer>

#include "WaitUntil.h"

namespace sidekin::test {

SimulatorProcess::SimulatorProcess(QStringList extraArguments) {
    static int serial = 0;
    service_ = QStringLiteral("Sim%1x%2").arg(QCoreApplication::applicationPid()).arg(++serial);
    QObject::connect(&process_, &QProcess::readyReadStandardOutput, &process_,
                     [this] { out_ += process_.readAllStandardOutput().replace("\r", ""); });
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    endWithTest(process_);
    process_.start(QStringLiteral(HOSTSIM_EXE),
                   QStringList{"--no-window", "--service", service_, "--root", folder_.file("host"),
                               "--ini", folder_.file("zentrovar.ini"), "--write-ini", "--log",
                               folder_.file("frames.log")} +
                       extraArguments);
    ready_ = waitUntil([this] { return out_.contains("ready\n"); }, 10000);
}

SimulatorProcess::~SimulatorProcess() {
    if (process_.state() != QProcess::NotRunning) {
        sidekin::test::thaw(pid());
        process_.write("quit\n");
        if (!process_.waitForFinished(3000)) process_.kill();
        process_.waitForFinished(3000);
    }
}

void SimulatorProcess::control(const QString& line) {
    const qsizetype answered = out_.count('\n');
    process_.write((line + QLatin1Char('\n')).toUtf8());
    process_.waitForBytesWritten(1000);
    for (QDeadlineTimer deadline(3000); out_.count('\n') == answered && !deadline.hasExpired();)
        process_.waitForReadyRead(static_cast<int>(deadline.remainingTime()));
}

void SimulatorProcess::kill() {
    process_.kill();
    process_.waitForFinished(3000);
}

void SimulatorProcess::freeze() { sidekin::test::freeze(pid()); }

void SimulatorProcess::thaw() { sidekin::test::thaw(pid()); }

QStringList SimulatorProcess::frames() const {
    QFile log(folder_.file("frames.log"));
    QStringList result;
    if (!log.open(QIODevice::ReadOnly)) return result;
    for (const QByteArray& line : log.readAll().split('\n')) {
        const QList<QByteArray> fields = line.split('\t');
        if (fields.size() >= 5)
            result << QString::fromUtf8(fields[2] + '\t' + fields[3] + '\t' + fields[4]);
    }
    return result;
}

QStringList SimulatorProcess::executed() const {
    QStringList result;
    for (const QString& frame : frames())
        if (frame.startsWith(QLatin1String("Execute\t"))) result << frame.mid(8);
    return result;
}

}  // namespace sidekin::test
