#include "FakeHost.h"

#include <gtest/gtest.h>

#include <QLocalServer>
#include <QLocalSocket>
#include <QMutexLocker>
#include <QPointer>
#include <QSet>
#include <QTimer>
#include <QtEndian>
#include <optional>

namespace sidekin::test {

using link::Frame;
using link::Verb;

// Lives in the host's thread; every member is touched there only.
class FakeHostServer : public QObject {
public:
    explicit FakeHostServer(FakeHost& host) : host_(host) {}

    bool listen(const QString& service) {
        server_ = new QLocalServer(this);
        server_->setSocketOptions(QLocalServer::AbstractNamespaceOption);
        connect(server_, &QLocalServer::newConnection, this, &FakeHostServer::accept);
        return server_->listen(link::serverName(service));
    }

    void shutDown() {
        peers_.clear();
        delete server_;
        server_ = nullptr;
    }

    void push(const QString& item, const QString& value) {
        for (auto& peer : peers_)
            if (peer->advised.contains(item) && peer->socket)
                send(*peer, {Verb::Update, 0, {}, item, value + link::LineEnd});
    }

private:
    struct Peer {
        QPointer<QLocalSocket> socket;
        link::FrameReader reader;
        int number = 0;
        QSet<QString> advised;
    };

    void accept() {
        while (QLocalSocket* socket = server_->nextPendingConnection()) {
            auto peer = std::make_shared<Peer>();
            peer->socket = socket;
            peer->number = static_cast<int>(peers_.size()) + 1;
            peers_.push_back(peer);
            connect(socket, &QLocalSocket::readyRead, this, [this, p = peer.get()] { read(*p); });
            read(*peer);
        }
    }

    void read(Peer& peer) {
        peer.reader.feed(peer.socket->readAll());
        while (auto frame = peer.reader.next()) {
            {
                QMutexLocker lock(&host_.mutex_);
                host_.script_.received.push_back({peer.number, *frame});
            }
            answer(peer, *frame);
        }
        if (peer.reader.failed()) peer.socket->abort();
    }

    void answer(Peer& peer, const Frame& frame) {
        FakeHost::Fault fault = FakeHost::Fault::None;
        int lateMs = 0;
        {
            QMutexLocker lock(&host_.mutex_);
            const auto& s = host_.script_;
            if (auto it = s.textFaults.find(frame.name); it != s.textFaults.end())
                fault = it->second;
            else if (auto v = s.verbFaults.find(frame.verb); v != s.verbFaults.end())
                fault = v->second;
            lateMs = s.lateMs;
        }
        switch (fault) {
            case FakeHost::Fault::None:
                return answerNormally(peer, frame);
            case FakeHost::Fault::Silent:
                return;
            case FakeHost::Fault::Refuse:
                return send(peer, {Verb::Refused, frame.id, {}, {}, QStringLiteral("refused")});
            case FakeHost::Fault::Close:
                peer.socket->disconnectFromServer();
                return;
            case FakeHost::Fault::UnknownVerb: {
                QByteArray bytes = link::encode({Verb::Ack, frame.id, {}, {}, {}});
                bytes[4] = char(99);
                return write(peer, bytes);
            }
            case FakeHost::Fault::Oversized: {
                QByteArray bytes(4 + 32, '\0');
                qToBigEndian<quint32>(link::MaxFrameBytes + 1, bytes.data());
                return write(peer, bytes);
            }
            case FakeHost::Fault::Late:
                QTimer::singleShot(lateMs, peer.socket,
                                   [this, &peer, frame] { answerNormally(peer, frame); });
                return;
        }
    }

    void answerNormally(Peer& peer, const Frame& frame) {
        std::optional<QString> raw;
        std::optional<std::pair<QString, QString>> report;
        {
            QMutexLocker lock(&host_.mutex_);
            const auto& s = host_.script_;
            if (auto it = s.raw.find(frame.name); it != s.raw.end()) raw = it->second;
            if (auto it = s.reports.find(frame.name); it != s.reports.end()) report = it->second;
        }
        switch (frame.verb) {
            case Verb::Execute:
                if (report) {
                    host_.setValue(report->first, report->second);
                    push(report->first, report->second);
                }
                return send(peer, {Verb::Ack, frame.id, {}, {}, {}});
            case Verb::Request:
                if (!raw)
                    return send(peer, {Verb::Refused, frame.id, {}, {}, QStringLiteral("unknown")});
                return send(peer, {Verb::Data, frame.id, {}, {}, *raw});
            case Verb::Advise: {
                peer.advised.insert(frame.name);
                // One write: the program reads the first value with the Ack, as a host that
                // answers promptly makes it do.
                QByteArray bytes = link::encode({Verb::Ack, frame.id, {}, {}, {}});
                if (raw) bytes += link::encode({Verb::Update, 0, {}, frame.name, *raw});
                return write(peer, bytes);
            }
            default:
                return;
        }
    }

    void send(Peer& peer, const Frame& frame) { write(peer, link::encode(frame)); }

    void write(Peer& peer, const QByteArray& bytes) {
        if (!peer.socket || peer.socket->state() != QLocalSocket::ConnectedState) return;
        peer.socket->write(bytes);
        peer.socket->flush();
    }

    FakeHost& host_;
    QLocalServer* server_ = nullptr;
    std::vector<std::shared_ptr<Peer>> peers_;
};

FakeHost::FakeHost(const QString& service) {
    server_ = new FakeHostServer(*this);
    server_->moveToThread(&thread_);
    thread_.start();
    QMetaObject::invokeMethod(
        server_, [this, service] { return server_->listen(service); }, Qt::BlockingQueuedConnection,
        &listening_);
    if (!listening_) ADD_FAILURE() << "the fake host cannot serve " << service.toStdString();
}

FakeHost::~FakeHost() {
    QMetaObject::invokeMethod(
        server_, [this] { server_->shutDown(); }, Qt::BlockingQueuedConnection);
    thread_.quit();
    thread_.wait(5000);
    delete server_;
}

void FakeHost::setValue(const QString& item, const QString& value) {
    setRawValue(item, value + link::LineEnd);
}

void FakeHost::setRawValue(const QString& item, const QString& raw) {
    QMutexLocker lock(&mutex_);
    script_.raw[item] = raw;
}

void FakeHost::fail(link::Verb verb, Fault fault) {
    QMutexLocker lock(&mutex_);
    script_.verbFaults[verb] = fault;
}

void FakeHost::failOn(const QString& text, Fault fault) {
    QMutexLocker lock(&mutex_);
    script_.textFaults[text] = fault;
}

void FakeHost::reportOn(const QString& command, const QString& item, const QString& value) {
    QMutexLocker lock(&mutex_);
    script_.reports[command] = {item, value};
}

void FakeHost::setLateMs(int ms) {
    QMutexLocker lock(&mutex_);
    script_.lateMs = ms;
}

void FakeHost::push(const QString& item, const QString& value) {
    setValue(item, value);
    QMetaObject::invokeMethod(
        server_, [this, item, value] { server_->push(item, value); }, Qt::BlockingQueuedConnection);
}

std::vector<FakeHost::Received> FakeHost::received() const {
    QMutexLocker lock(&mutex_);
    return script_.received;
}

QStringList FakeHost::log() const {
    static const std::map<Verb, QString> names{
        {Verb::Execute, "Execute"}, {Verb::Request, "Request"}, {Verb::Advise, "Advise"}};
    QStringList lines;
    for (const Received& r : received())
        lines << QStringLiteral("%1 %2 %3 %4")
                     .arg(r.connection)
                     .arg(names.count(r.frame.verb) ? names.at(r.frame.verb) : QStringLiteral("?"),
                          r.frame.topic, r.frame.name);
    return lines;
}

}  // namespace sidekin::test
