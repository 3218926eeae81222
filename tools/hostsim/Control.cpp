#include "Control.h"

#ifdef Q_OS_WIN
#include <cstdio>
#include <thread>
#else
#include <unistd.h>
#endif

#include <QLocalServer>
#include <QLocalSocket>
#include <QSocketNotifier>
#include <cstdio>

#include "HostSimulator.h"
#include "LinkProtocol.h"

namespace sidekin::hostsim {

namespace {

const char* const Help =
    "show 11|01|00, set ITEM VALUE, get ITEM, runtime SECONDS, fault abort N [Aborted|ABORTED], "
    "fault abort next, fault abort off, fault noloaded on|off, fault norunning on|off, fault close "
    "after N, "
    "fault close on WORD, fault close off, fault garbage [N], fault garbage off, fault clear, quit";

ControlReply ok(const QString& more = QString()) {
    return {more.isEmpty() ? QStringLiteral("ok") : QStringLiteral("ok ") + more};
}
ControlReply error(const QString& why) { return {QStringLiteral("error: ") + why}; }

std::optional<bool> onOff(const QString& word) {
    if (word == u"on") return true;
    if (word == u"off") return false;
    return std::nullopt;
}

std::optional<int> count(const QString& word) {
    bool ok = false;
    const int n = word.toInt(&ok);
    if (!ok || n <= 0) return std::nullopt;
    return n;
}

ControlReply fault(HostSimulator& sim, const QStringList& w) {
    Faults& f = sim.config().faults;
    const QString kind = w.value(1).toLower();
    if (kind == u"clear" && w.size() == 2) {
        sim.clearFaults();
        return ok();
    }
    if (kind == u"abort") {
        if (w.value(2) == u"off" && w.size() == 3) {
            f.abortRuns.clear();
            f.abortNext = false;
            return ok();
        }
        if (w.value(2) == u"next" && w.size() == 3) {
            f.abortNext = true;
            return ok();
        }
        const auto row = count(w.value(2));
        const QString word = w.value(3, f.abortWord);
        if (!row || w.size() > 4 || (word != u"Aborted" && word != u"ABORTED"))
            return error(QStringLiteral("fault abort N|next [Aborted|ABORTED]"));
        f.abortRuns.insert(*row);
        f.abortWord = word;
        return ok();
    }
    if ((kind == u"noloaded" || kind == u"norunning") && w.size() == 3) {
        const auto on = onOff(w[2]);
        if (!on) return error(QStringLiteral("fault %1 on|off").arg(kind));
        (kind == u"noloaded" ? f.noLoaded : f.noRunning) = *on;
        return ok();
    }
    if (kind == u"close") {
        if (w.value(2) == u"off" && w.size() == 3) {
            sim.armCloseAfter(0);
            sim.armCloseOn(QString());
            return ok();
        }
        if (w.value(2) == u"after" && w.size() == 4) {
            if (const auto n = count(w[3])) {
                sim.armCloseAfter(*n);
                return ok();
            }
        }
        if (w.value(2) == u"on" && w.size() == 4) {
            sim.armCloseOn(w[3]);
            return ok();
        }
        return error(QStringLiteral("fault close after N | fault close on WORD | fault close off"));
    }
    if (kind == u"garbage") {
        if (w.value(2) == u"off" && w.size() == 3) {
            sim.armGarbageAfter(0);
            return ok();
        }
        const auto n = w.size() == 2 ? std::optional<int>(1) : count(w.value(2));
        if (!n || w.size() > 3) return error(QStringLiteral("fault garbage [N]"));
        sim.armGarbageAfter(*n);
        return ok();
    }
    return error(QStringLiteral("unknown fault; try help"));
}

}  // namespace

ControlReply applyControl(HostSimulator& sim, const QString& line) {
    const QString text = line.trimmed();
    const QStringList w = text.split(u' ', Qt::SkipEmptyParts);
    const QString verb = w.value(0).toLower();
    if (verb.isEmpty()) return {};
    if (verb == u"quit" && w.size() == 1) return {QStringLiteral("ok"), true};
    if (verb == u"help") return ok(QLatin1String(Help));
    if (verb == u"show" && w.size() == 2) {
        if (w[1] != u"11" && w[1] != u"01" && w[1] != u"00")
            return error(QStringLiteral("show 11|01|00"));
        sim.publish(items::ShowOrq, w[1]);
        return ok();
    }
    if (verb == u"set" && w.size() >= 2) {
        // The value is the rest of the line after one blank, blanks inside kept.
        const qsizetype at = text.indexOf(w[1], text.indexOf(u' ')) + w[1].size();
        sim.publish(w[1], text.mid(at + 1));
        return ok();
    }
    if (verb == u"get" && w.size() == 2) {
        if (auto v = sim.value(w[1])) return ok(*v);
        return error(QStringLiteral("no item %1").arg(w[1]));
    }
    if (verb == u"runtime" && w.size() == 2) {
        bool good = false;
        const double seconds = w[1].toDouble(&good);
        if (!good || seconds < 0) return error(QStringLiteral("runtime SECONDS"));
        sim.config().runSeconds = seconds;
        return ok();
    }
    if (verb == u"fault") return fault(sim, w);
    return error(QStringLiteral("unknown command; try help"));
}

ControlChannel::ControlChannel(HostSimulator& simulator, QObject* parent)
    : QObject(parent), simulator_(simulator) {}

QString ControlChannel::handle(const QString& line) {
    const ControlReply reply = applyControl(simulator_, line);
    if (reply.quit)
        QMetaObject::invokeMethod(this, &ControlChannel::quitRequested, Qt::QueuedConnection);
    return reply.text;
}

#ifdef Q_OS_WIN
// A console or pipe handle cannot be watched by the event loop there: a thread
// reads it and hands each piece to the channel's thread.
void ControlChannel::readStandardInput() {
    std::thread([this] {
        char buffer[4096];
        // At the end of input the host goes on serving; only "quit" ends it.
        while (std::fgets(buffer, sizeof buffer, stdin)) {
            const QByteArray piece(buffer);
            QMetaObject::invokeMethod(this, [this, piece] { takeInput(piece); });
        }
    }).detach();
}
#else
void ControlChannel::readStandardInput() {
    stdin_ = new QSocketNotifier(STDIN_FILENO, QSocketNotifier::Read, this);
    connect(stdin_, &QSocketNotifier::activated, this, &ControlChannel::stdinReady);
}

void ControlChannel::stdinReady() {
    char buffer[4096];
    const ssize_t n = ::read(STDIN_FILENO, buffer, sizeof buffer);
    if (n <= 0) {
        // End of input: the host goes on serving; only "quit" ends it.
        stdin_->setEnabled(false);
        return;
    }
    takeInput(QByteArray(buffer, n));
}
#endif

void ControlChannel::takeInput(const QByteArray& piece) {
    pending_.append(piece);
    for (qsizetype end = pending_.indexOf('\n'); end >= 0; end = pending_.indexOf('\n')) {
        const QString line = QString::fromUtf8(pending_.left(end)).remove(u'\r');
        pending_.remove(0, end + 1);
        const QString reply = handle(line);
        if (!reply.isEmpty()) {
            std::fputs(qPrintable(reply + u'\n'), stdout);
            std::fflush(stdout);
        }
    }
}

bool ControlChannel::listen(const QString& name, QString* error) {
    server_ = new QLocalServer(this);
    server_->setSocketOptions(QLocalServer::AbstractNamespaceOption);
    if (!server_->listen(link::serverName(name))) {
        *error = QStringLiteral("cannot serve the control name %1: %2")
                     .arg(name, server_->errorString());
        return false;
    }
    connect(server_, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket* socket = server_->nextPendingConnection()) {
            if (!link::peerIsSameUser(socket->socketDescriptor())) {
                socket->abort();
                socket->deleteLater();
                continue;
            }
            connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
            connect(socket, &QLocalSocket::readyRead, socket, [this, socket] {
                while (socket->canReadLine()) {
                    const QString line =
                        QString::fromUtf8(socket->readLine()).remove(u'\r').remove(u'\n');
                    const QString reply = handle(line);
                    if (!reply.isEmpty()) socket->write((reply + u'\n').toUtf8());
                }
                socket->flush();
            });
        }
    });
    return true;
}

}  // namespace sidekin::hostsim
