#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <memory>
#include <optional>

#include "SimConfig.h"

class QProcess;

namespace sidekin::hostsim {

class ControlChannel;
class FrameLog;
class HostSimulator;
class LinkServer;

// The one argument the program is started with:
// window handle | service | "folder/" | instrument | offline flag.
QString launchArgument(qint64 windowId, const QString& service, const QString& programFolder,
                       int instrument, bool offline);

// The whole simulator process: options, demo set, servers, control, launch.
class SimulatorApp : public QObject {
    Q_OBJECT
public:
    SimulatorApp();
    ~SimulatorApp() override;

    // Sets everything up from the command line. An exit status when the
    // process should end now (help, bad options, a name already served).
    std::optional<int> start(const QStringList& arguments);

private:
    bool launch(const QString& program, QString* error);

    std::unique_ptr<FrameLog> log_;
    std::unique_ptr<HostSimulator> simulator_;
    std::unique_ptr<LinkServer> server_;
    std::unique_ptr<ControlChannel> control_;
    QProcess* program_ = nullptr;
    QString service_;
    QString programFolder_;
    QString iniFolder_;
    qint64 windowId_ = 0;
    int instrument_ = 1;
    bool offline_ = false;
};

}  // namespace sidekin::hostsim
