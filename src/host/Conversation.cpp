#include "Conversation.h"

#include <QDeadlineTimer>
#include <QMetaObject>

#include "platform/RuntimeError.h"

namespace sidekin::link {

void registerLinkErrors() {
    registerErrorDescription(ErrNoHost,
                             QStringLiteral("No foreign application responded to a DDE initiate"));
    registerErrorDescription(
        ErrRefused, QStringLiteral("Foreign application won't perform DDE method or operation"));
    registerErrorDescription(ErrTimeout, QStringLiteral("Timeout while waiting for DDE response"));
    registerErrorDescription(ErrBadData, QStringLiteral("Data in wrong format"));
    registerErrorDescription(ErrHostQuit, QStringLiteral("Foreign application quit"));
    registerErrorDescription(ErrNoChannel,
                             QStringLiteral("DDE method invoked with no channel open"));
}

namespace {
// The words are there before the first link error, whatever raises it.
const bool linkErrorsRegistered = (registerLinkErrors(), true);
}  // namespace

Conversation::Conversation() {
    connect(&socket_, &QLocalSocket::readyRead, this, &Conversation::readFrames);
    connect(&socket_, &QLocalSocket::disconnected, this, [this] {
        broken_ = true;
        emit closed();
    });
}

Conversation::~Conversation() {
    socket_.disconnect(this);
    socket_.abort();
}

std::unique_ptr<Conversation> Conversation::open(const QString& service) {
    std::unique_ptr<Conversation> conversation(new Conversation);
    QLocalSocket& socket = conversation->socket_;
    socket.setSocketOptions(QLocalSocket::AbstractNamespaceOption);
    socket.connectToServer(serverName(service));
    if (!socket.waitForConnected(2000) || !peerIsSameUser(socket.socketDescriptor()))
        raiseError(ErrNoHost);
    return conversation;
}

bool Conversation::isOpen() const {
    return !broken_ && socket_.state() == QLocalSocket::ConnectedState;
}

void Conversation::readFrames() {
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

Frame Conversation::ask(Verb verb, const QString& topic, const QString& name, int timeoutMs) {
    if (!isOpen()) raiseError(reader_.failed() ? ErrBadData : ErrNoChannel);
    const std::uint32_t id = nextId_++;
    socket_.write(encode(Frame{verb, id, topic, name, {}}));
    socket_.flush();
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

void Conversation::execute(const QString& topic, const QString& command, int timeoutMs) {
    ask(Verb::Execute, topic, command, timeoutMs);
}

QString Conversation::request(const QString& topic, const QString& item, int timeoutMs) {
    const Frame reply = ask(Verb::Request, topic, item, timeoutMs);
    if (reply.verb != Verb::Data) raiseError(ErrBadData);
    return reply.value;
}

void Conversation::advise(const QString& topic, const QString& item, int timeoutMs) {
    ask(Verb::Advise, topic, item, timeoutMs);
}

}  // namespace sidekin::link
