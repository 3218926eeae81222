#include "InProcessHost.h"

#include <QHash>
#include <QMetaObject>
#include <algorithm>
#include <optional>

#include "DemoSet.h"
#include "LinkProtocol.h"
#include "platform/RuntimeError.h"

namespace sidekin::test {

class InProcessChannel : public link::Channel, public hostsim::Peer {
public:
    InProcessChannel(InProcessHost& host, int connection, const QString& service)
        : host_(&host), connection_(connection), service_(service) {
        QObject::connect(host.simulator_.get(), &hostsim::HostSimulator::itemChanged, this,
                         [this](const QString& item, const QString& value) {
                             const auto it = watched_.constFind(item.toLower());
                             if (it != watched_.constEnd()) update(*it, value);
                         });
        host_->channels_.push_back(this);
    }
    ~InProcessChannel() override {
        if (!host_) return;
        auto& all = host_->channels_;
        all.erase(std::remove(all.begin(), all.end(), this), all.end());
    }

    void execute(const QString& topic, const QString& command, int) override {
        if (host_) host_->executed_ << command;
        ask(link::Verb::Execute, topic, command);
    }
    QString request(const QString& topic, const QString& item, int) override {
        const link::Frame answer = ask(link::Verb::Request, topic, item);
        if (host_->raw_.contains(item)) return host_->raw_.value(item);
        if (answer.verb != link::Verb::Data) raiseError(link::ErrBadData);
        return answer.value;
    }
    void advise(const QString& topic, const QString& item, int) override {
        ask(link::Verb::Advise, topic, item);
    }
    bool isOpen() const override { return !dropped_; }

    int connection() const override { return connection_; }
    void send(const link::Frame& frame) override {
        if (frame.verb == link::Verb::Update)
            update(frame.name, frame.value);
        else
            reply_ = frame;
    }
    void sendGarbage() override {
        garbage_ = true;
        drop();
    }
    void orphan() {
        drop();
        host_ = nullptr;
    }
    void drop() override {
        if (dropped_) return;
        dropped_ = true;
        QMetaObject::invokeMethod(
            this, [this] { emit closed(); }, Qt::QueuedConnection);
    }
    void watch(const QString& item) override {
        watched_.insert(item.toLower(), item);
        if (auto value = host_->simulator_->value(item)) update(item, *value);
    }

private:
    link::Frame ask(link::Verb verb, const QString& topic, const QString& name) {
        if (dropped_) raiseError(garbage_ ? link::ErrBadData : link::ErrNoChannel);
        static const char* verbs[] = {"", "Execute", "Request", "Advise"};
        host_->frames_ << QStringLiteral("%1 %2 %3 %4 %5")
                              .arg(connection_)
                              .arg(service_, QLatin1String(verbs[static_cast<int>(verb)]), topic,
                                   name);
        reply_.reset();
        host_->simulator_->receive(*this, link::Frame{verb, nextId_++, topic, name, {}});
        if (garbage_) raiseError(link::ErrBadData);
        if (dropped_) raiseError(link::ErrHostQuit);
        if (!reply_) raiseError(link::ErrTimeout);
        if (reply_->verb == link::Verb::Refused) raiseError(link::ErrRefused);
        return *reply_;
    }
    // Handed on at the next turn of the event loop, as the socket link does.
    void update(const QString& item, const QString& value) {
        if (dropped_) return;
        QMetaObject::invokeMethod(
            this, [this, item, value = value + link::LineEnd] { emit itemUpdated(item, value); },
            Qt::QueuedConnection);
    }

    InProcessHost* host_;  // none once the host has gone before its channels
    int connection_;
    QString service_;
    std::uint32_t nextId_ = 1;
    std::optional<link::Frame> reply_;
    QHash<QString, QString> watched_;
    bool dropped_ = false;
    bool garbage_ = false;
};

hostsim::SimConfig InProcessHost::defaultConfig() {
    hostsim::SimConfig config;
    config.model = QStringLiteral("4410");
    config.runSeconds = 3600;
    config.publishMs = 3600 * 1000;
    return config;
}

InProcessHost::InProcessHost(const hostsim::SimConfig& config, const QStringList& services)
    : services_(services) {
    const QString root = folder_.file("host");
    QString error;
    if (!hostsim::installDemoSet(root, true, &error) ||
        !hostsim::writeServicesIni(folder_.file("zentrovar.ini"), 1, services.front(),
                                   services.value(1, services.front()), &error))
        qFatal("in-process host: %s", qPrintable(error));
    simulator_ = std::make_unique<hostsim::HostSimulator>(config, hostsim::demoFolders(root));
    link::setHostLink(this);
}

InProcessHost::~InProcessHost() {
    link::setHostLink(nullptr);
    for (InProcessChannel* channel : channels_) channel->orphan();
}

std::unique_ptr<link::Channel> InProcessHost::open(const QString& service, const QString&) {
    if (dead_ || !services_.contains(service, Qt::CaseInsensitive)) raiseError(link::ErrNoHost);
    return std::make_unique<InProcessChannel>(*this, ++connections_, service);
}

void InProcessHost::kill() {
    dead_ = true;
    for (InProcessChannel* channel : std::vector(channels_)) channel->drop();
}

}  // namespace sidekin::test
