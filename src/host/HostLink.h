#pragma once

#include <QObject>
#include <QString>
#include <memory>

namespace sidekin::link {

// Run-time error numbers of the host link, with the legacy platform's words.
enum LinkError : int {
    ErrNoHost = 282,     // nobody serves the service
    ErrRefused = 285,    // the host would not perform it
    ErrTimeout = 286,    // no answer in time
    ErrBusy = 288,       // the host is busy
    ErrBadData = 290,    // a malformed frame
    ErrHostQuit = 291,   // the connection closed during an operation
    ErrNoChannel = 293,  // an operation on a link that is not open
};

void registerLinkErrors();

// One conversation with a host service. Operations block until the host has
// answered (no events are served meanwhile) and raise the errors above; pushed
// values are handed on through itemUpdated at the program's next turn of the
// event loop, never inside an operation.
class Channel : public QObject {
    Q_OBJECT
public:
    virtual void execute(const QString& topic, const QString& command, int timeoutMs) = 0;
    // The value as the host sent it, line end included.
    virtual QString request(const QString& topic, const QString& item, int timeoutMs) = 0;
    virtual void advise(const QString& topic, const QString& item, int timeoutMs) = 0;
    virtual bool isOpen() const = 0;

signals:
    void itemUpdated(const QString& item, const QString& value);
    void closed();
};

// Opens conversations with the host. The program uses the platform's link (a
// local socket, DDE on Windows); tests may install a host of their own.
class HostLink {
public:
    virtual ~HostLink() = default;
    // A conversation on one topic of the service, as DDE has it (the local
    // socket carries the topic in each frame). Raises ErrNoHost when nobody serves it.
    virtual std::unique_ptr<Channel> open(const QString& service, const QString& topic) = 0;
};

HostLink& hostLink();
// The platform's own link, whatever is installed.
HostLink& platformHostLink();
// nullptr restores the platform's link.
void setHostLink(HostLink* link);

}  // namespace sidekin::link
