#pragma once

#include <QLocalSocket>
#include <map>

#include "HostLink.h"
#include "LinkProtocol.h"

namespace sidekin::link {

// A conversation over the user's private local socket of the service.
class SocketChannel : public Channel {
public:
    SocketChannel();
    ~SocketChannel() override;

    void connectTo(const QString& service);

    void execute(const QString& topic, const QString& command, int timeoutMs) override;
    QString request(const QString& topic, const QString& item, int timeoutMs) override;
    void advise(const QString& topic, const QString& item, int timeoutMs) override;
    bool isOpen() const override;

private:
    Frame ask(Verb verb, const QString& topic, const QString& name, int timeoutMs);
    void readFrames();

    QLocalSocket socket_;
    FrameReader reader_;
    std::map<std::uint32_t, Frame> replies_;
    std::uint32_t nextId_ = 1;
    bool broken_ = false;
};

class SocketLink : public HostLink {
public:
    std::unique_ptr<Channel> open(const QString& service, const QString& topic) override;
};

}  // namespace sidekin::link
