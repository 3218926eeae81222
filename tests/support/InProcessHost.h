#pragma once

#include <QHash>
#include <QStringList>
#include <memory>
#include <vector>

#include "HostLink.h"
#include "HostSimulator.h"
#include "TempFolder.h"

namespace sidekin::test {

class InProcessChannel;

// The host simulator's engine inside the test process, installed as the
// program's host link: the program's frames reach it as calls, its answers and
// item updates come back as the socket link hands them on. Its demo set and
// zentrovar.ini live in a temporary folder that is also the profile folder.
class InProcessHost : public link::HostLink {
public:
    // Serves every name in services; the first is the online one in zentrovar.ini, the second
    // (if any) the offline one.
    explicit InProcessHost(const hostsim::SimConfig& config = defaultConfig(),
                           const QStringList& services = {QStringLiteral("InProcessHost")});
    ~InProcessHost() override;

    static hostsim::SimConfig defaultConfig();  // model 4410, runs that last an hour

    std::unique_ptr<link::Channel> open(const QString& service, const QString& topic) override;

    hostsim::HostSimulator& simulator() { return *simulator_; }
    const QString& service() const { return services_.front(); }
    QString configFolder() const { return folder_.path(); }
    QString dataFolder() const { return simulator_->folders().data; }

    // The command texts executed, in order.
    const QStringList& executed() const { return executed_; }
    // Every frame received: "<connection> <service> <verb> <topic> <name>".
    const QStringList& frames() const { return frames_; }
    // A request of the item answers exactly this, no line end added.
    void setRawValue(const QString& item, const QString& raw) { raw_[item] = raw; }
    // Every conversation drops and no new one opens, as when the host dies.
    void kill();

private:
    friend class InProcessChannel;
    TempFolder folder_;
    QStringList services_;
    QHash<QString, QString> raw_;
    QStringList frames_;
    std::unique_ptr<hostsim::HostSimulator> simulator_;
    std::vector<InProcessChannel*> channels_;
    QStringList executed_;
    int connections_ = 0;
    bool dead_ = false;
};

}  // namespace sidekin::test
