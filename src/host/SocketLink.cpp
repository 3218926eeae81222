#include "SocketLink.h"

#include <QDeadlineTimer>
#include <QMetaObject>

#include "LinkSend.h"
#include "platform/RuntimeError.h"

namespace sidekin::link {

SocketChannel::SocketChannel() {
    connect(&socket_, &QLocalSocket::readyRead, this, &SocketChannel::readFrames);
    connect(&socket_, &QLocalSocket::disconnected, this, [this] {
        broken_ = true;
        emit closed();
    });
}

SocketChannel::~SocketChannel() {
    socket_.disconnect(this);
    socket_.abort();
}

void SocketChannel::connectTo(const QString& service) {
    socket_.setSocketOptions(QLocalSocket::AbstractNamespaceOption);
    socket_.connectToServer(serverName(service));
    if (!socket_.waitForConnected(2000) || !peerIsSameUser(socket_.socketDescriptor()))
        raiseError(ErrNoHost);
}

std::unique_ptr<Channel> SocketLink::open(const QString& service, const QString&) {
    auto channel = std::make_unique<SocketChannel>();
    channel->connectTo(service);
    return channel;
}

bool SocketChannel::isOpen() const {
    return !broken_ && socket_.state() == QLocalSocket::ConnectedState;
}

void SocketChannel::readFrames() {
    reader_.feed(socket_.readAll());
    while (auto frame = reader_.next()) {
        if (frame->verb == Verb::Update) {
            // Handed on later, so that no event procedure runs inside a link operation.
            QMetaObject::invokeMethod(
                this,
                [this, item = frame->name, value = frame->value] { emit itemUpdated(item, value); },
                Qt::QueuedConnection);
        } else {
            replies_[frame->id] = *frame;
        }
    }
    if (reader_.failed()) {
        broken_ = true;
        socket_.abort();
    }
}

Frame SocketChannel::ask(Verb verb, const QString& topic, const QString& name, int timeoutMs) {
    if (!isOpen()) raiseError(reader_.failed() ? ErrBadData : ErrNoChannel);
    const std::uint32_t id = nextId_++;
    sendNow(socket_, encode(Frame{verb, id, topic, name, {}}));
    QDeadlineTimer deadline(timeoutMs);
    for (;;) {
        readFrames();
        if (auto it = replies_.find(id); it != replies_.end()) {
            Frame reply = it->second;
            replies_.erase(it);
            if (reply.verb == Verb::Refused) raiseError(ErrRefused);
            return reply;
        }
        if (reader_.failed()) raiseError(ErrBadData);
        if (broken_ || socket_.state() != QLocalSocket::ConnectedState) raiseError(ErrHostQuit);
        if (deadline.hasExpired()) raiseError(ErrTimeout);
        socket_.waitForReadyRead(static_cast<int>(deadline.remainingTime()));
    }
}

void SocketChannel::execute(const QString& topic, const QString& command, int timeoutMs) {
    ask(Verb::Execute, topic, command, timeoutMs);
}

QString SocketChannel::request(const QString& topic, const QString& item, int timeoutMs) {
    const Frame reply = ask(Verb::Request, topic, item, timeoutMs);
    if (reply.verb != Verb::Data) raiseError(ErrBadData);
    return reply.value;
}

void SocketChannel::advise(const QString& topic, const QString& item, int timeoutMs) {
    ask(Verb::Advise, topic, item, timeoutMs);
}

HostLink& platformHostLink() {
    static SocketLink socketLink;
    return socketLink;
}

}  // namespace sidekin::link
