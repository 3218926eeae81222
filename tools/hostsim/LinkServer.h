#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <memory>

namespace sidekin::hostsim {

class HostSimulator;

// Serves the simulator under one or more service names, any number of
// conversations at once, to processes of this user only: a local socket, DDE on
// Windows. Every conversation gets the next connection number of the frame log.
class LinkServer : public QObject {
    Q_OBJECT
public:
    explicit LinkServer(HostSimulator& simulator, QObject* parent = nullptr);
    ~LinkServer() override;

    bool listen(const QString& service, QString* error);
    QStringList services() const { return services_; }
    void close();

private:
    struct Serving;

    HostSimulator& simulator_;
    std::unique_ptr<Serving> serving_;
    QStringList services_;
};

}  // namespace sidekin::hostsim
