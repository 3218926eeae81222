#pragma once

#include <memory>

#include "DdeClientWindows.h"
#include "HostLink.h"

namespace sidekin::link {

// A conversation with the host over DDEML.
class DdeChannel : public Channel, private dde::Listener {
public:
    DdeChannel();

    void connectTo(const QString& service, const QString& topic);

    void execute(const QString& topic, const QString& command, int timeoutMs) override;
    QString request(const QString& topic, const QString& item, int timeoutMs) override;
    void advise(const QString& topic, const QString& item, int timeoutMs) override;
    bool isOpen() const override;

private:
    void data(const std::string& item, const std::string& value) override;
    void disconnected() override;
    void check(UINT error) const;

    dde::Conversation conversation_;
};

class DdeLink : public HostLink {
public:
    std::unique_ptr<Channel> open(const QString& service, const QString& topic) override;
};

}  // namespace sidekin::link
