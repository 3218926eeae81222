#include <QHash>
#include <QLocalServer>
#include <QLocalSocket>
#include <cstdio>
#include <vector>

#include "HostSimulator.h"
#include "LinkProtocol.h"
#include "LinkSend.h"
#include "LinkServer.h"

namespace sidekin::hostsim {

namespace {

class Session : public QObject, public Peer {
public:
    Session(HostSimulator& simulator, QLocalSocket* socket, int connection)
        : QObject(socket), simulator_(simulator), socket_(socket), connection_(connection) {
        QObject::connect(socket, &QLocalSocket::readyRead, this, [this] { read(); });
        QObject::connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        QObject::connect(
            &simulator, &HostSimulator::itemChanged, this,
            [this](const QString& item, const QString& value) { changed(item, value); });
    }

    int connection() const override { return connection_; }

    void send(const link::Frame& frame) override {
        if (!dropped_) link::sendNow(*socket_, link::encode(frame));
    }

    void sendGarbage() override {
        QByteArray bytes =
            link::encode(link::Frame{link::Verb::Data, 0, {}, {}, QStringLiteral("?")});
        bytes[4] = '\xEE';  // no such verb
        if (!dropped_) link::sendNow(*socket_, bytes);
    }

    void drop() override {
        dropped_ = true;
        socket_->abort();
    }

    void watch(const QString& item) override {
        watched_.insert(item.toLower(), item);
        if (auto v = simulator_.value(item))
            send(link::Frame{link::Verb::Update, 0, {}, item, *v + link::LineEnd});
    }

private:
    void read() {
        reader_.feed(socket_->readAll());
        while (!dropped_) {
            std::optional<link::Frame> frame = reader_.next();
            if (!frame) break;
            simulator_.receive(*this, *frame);
        }
        if (reader_.failed() && !dropped_) {
            simulator_.receiveMalformed(*this);
            drop();
        }
    }

    void changed(const QString& item, const QString& value) {
        const auto it = watched_.constFind(item.toLower());
        if (it != watched_.constEnd())
            send(link::Frame{link::Verb::Update, 0, {}, *it, value + link::LineEnd});
    }

    HostSimulator& simulator_;
    QLocalSocket* socket_;
    int connection_;
    link::FrameReader reader_;
    QHash<QString, QString> watched_;  // lower-case name -> name as advised
    bool dropped_ = false;
};

}  // namespace

struct LinkServer::Serving {
    void accept(HostSimulator& simulator, QLocalServer* server);

    std::vector<QLocalServer*> servers;
    int nextConnection = 1;
};

LinkServer::LinkServer(HostSimulator& simulator, QObject* parent)
    : QObject(parent), simulator_(simulator), serving_(std::make_unique<Serving>()) {}

LinkServer::~LinkServer() { close(); }

bool LinkServer::listen(const QString& service, QString* error) {
    auto* server = new QLocalServer(this);
    server->setSocketOptions(QLocalServer::AbstractNamespaceOption);
    if (!server->listen(link::serverName(service))) {
        *error = QStringLiteral("cannot serve %1: %2").arg(service, server->errorString());
        delete server;
        return false;
    }
    connect(server, &QLocalServer::newConnection, this,
            [this, server] { serving_->accept(simulator_, server); });
    serving_->servers.push_back(server);
    services_ << service;
    return true;
}

void LinkServer::close() {
    for (QLocalServer* server : serving_->servers) server->close();
}

void LinkServer::Serving::accept(HostSimulator& simulator, QLocalServer* server) {
    while (QLocalSocket* socket = server->nextPendingConnection()) {
        if (!link::peerIsSameUser(socket->socketDescriptor())) {
            std::fprintf(stderr, "zentrovar-hostsim: refused a peer of another user\n");
            socket->abort();
            socket->deleteLater();
            continue;
        }
        new Session(simulator, socket, nextConnection++);
    }
}

}  // namespace sidekin::hostsim
