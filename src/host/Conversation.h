#pragma once

#include <QLocalSocket>
#include <QObject>
#include <QString>
#include <map>
#include <memory>

#include "LinkProtocol.h"

namespace sidekin::link {

// Run-time error numbers of the host link, with the legacy platform's words.
enum LinkError : int {
    ErrNoHost = 282,     // nobody serves the service
    ErrRefused = 285,    // the host would not perform it
    ErrTimeout = 286,    // no answer in time
    ErrBadData = 290,    // a malformed frame
    ErrHostQuit = 291,   // the connection closed during an operation
    ErrNoChannel = 293,  // an operation on a link that is not open
};

void registerLinkErrors();

// One conversation with a host service. Operations wait for their answer in
// the socket (no events are served meanwhile); pushed values are handed on
// through itemUpdated at the program's next turn of the event loop.
class Conversation : public QObject {
    Q_OBJECT
public:
    // Raises ErrNoHost when nobody serves the name.
    static std::unique_ptr<Conversation> open(const QString& service);
    ~Conversation() override;

    void execute(const QString& topic, const QString& command, int timeoutMs);
    // The value as the host sent it, line end included.
    QString request(const QString& topic, const QString& item, int timeoutMs);
    void advise(const QString& topic, const QString& item, int timeoutMs);

    bool isOpen() const;

signals:
    void itemUpdated(const QString& item, const QString& value);
    void closed();

private:
    Conversation();
    Frame ask(Verb verb, const QString& topic, const QString& name, int timeoutMs);
    void readFrames();

    QLocalSocket socket_;
    FrameReader reader_;
    std::map<std::uint32_t, Frame> replies_;
    std::uint32_t nextId_ = 1;
    bool broken_ = false;
};

}  // namespace sidekin::link
