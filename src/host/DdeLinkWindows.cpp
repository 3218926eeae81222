#include "DdeLinkWindows.h"

#include <QMetaObject>

#include "platform/RuntimeError.h"

namespace sidekin::link {

namespace {

std::string ansi(const QString& text) { return text.toLocal8Bit().toStdString(); }

QString fromAnsi(const std::string& text) {
    return QString::fromLocal8Bit(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace

DdeChannel::DdeChannel() : conversation_(this) {}

void DdeChannel::connectTo(const QString& service, const QString& topic) {
    const UINT error = conversation_.connect(ansi(service), ansi(topic));
    if (error == dde::ConnectTimedOut) raiseError(ErrTimeout);
    if (error != DMLERR_NO_ERROR) raiseError(ErrNoHost);
}

std::unique_ptr<Channel> DdeLink::open(const QString& service, const QString& topic) {
    auto channel = std::make_unique<DdeChannel>();
    channel->connectTo(service, topic);
    return channel;
}

HostLink& platformHostLink() {
    static DdeLink ddeLink;
    return ddeLink;
}

bool DdeChannel::isOpen() const { return conversation_.isConnected(); }

void DdeChannel::check(UINT error) const {
    switch (error) {
        case DMLERR_NO_ERROR:
            return;
        case DMLERR_ADVACKTIMEOUT:
        case DMLERR_DATAACKTIMEOUT:
        case DMLERR_EXECACKTIMEOUT:
            raiseError(isOpen() ? ErrTimeout : ErrHostQuit);
        case DMLERR_BUSY:
            raiseError(ErrBusy);
        case DMLERR_NO_CONV_ESTABLISHED:  // ended before the operation
            raiseError(ErrNoChannel);
        case DMLERR_SERVER_DIED:
        case DMLERR_POSTMSG_FAILED:  // the host's window is gone
            raiseError(ErrHostQuit);
        default:
            raiseError(isOpen() ? ErrRefused : ErrHostQuit);
    }
}

// The conversation's topic was chosen when it was opened.
void DdeChannel::execute(const QString&, const QString& command, int timeoutMs) {
    check(conversation_.execute(ansi(command), static_cast<DWORD>(timeoutMs)));
}

QString DdeChannel::request(const QString&, const QString& item, int timeoutMs) {
    std::string value;
    check(conversation_.request(ansi(item), static_cast<DWORD>(timeoutMs), &value));
    return fromAnsi(value);
}

void DdeChannel::advise(const QString&, const QString& item, int timeoutMs) {
    check(conversation_.advise(ansi(item), static_cast<DWORD>(timeoutMs)));
}

// Both come on the conversation's thread: handed on at the next turn of the event loop.
void DdeChannel::data(const std::string& item, const std::string& value) {
    QMetaObject::invokeMethod(
        this,
        [this, item = fromAnsi(item), value = fromAnsi(value)] { emit itemUpdated(item, value); },
        Qt::QueuedConnection);
}

void DdeChannel::disconnected() {
    QMetaObject::invokeMethod(
        this, [this] { emit closed(); }, Qt::QueuedConnection);
}

}  // namespace sidekin::link
