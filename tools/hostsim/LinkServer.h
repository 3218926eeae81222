#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <vector>

class QLocalServer;

namespace sidekin::hostsim {

class HostSimulator;

// Serves the simulator under one or more service names, any number of
// conversations at once, to processes of this user only.
class LinkServer : public QObject {
    Q_OBJECT
public:
    explicit LinkServer(HostSimulator& simulator, QObject* parent = nullptr);
    ~LinkServer() override;

    bool listen(const QString& service, QString* error);
    QStringList services() const { return services_; }
    void close();

private:
    void accept(QLocalServer* server);

    HostSimulator& simulator_;
    std::vector<QLocalServer*> servers_;
    QStringList services_;
    int nextConnection_ = 1;
};

}  // namespace sidekin::hostsim
