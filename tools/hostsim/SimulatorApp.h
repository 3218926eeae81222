#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <functional>
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

    // Called once the host serves, before the program is launched; answers the
    // window handle to pass to the program (0: none). --window-id overrides it.
    using WindowMaker = std::function<qint64(HostSimulator&, FrameLog&, int instrument)>;
    void setWindowMaker(WindowMaker maker) { windowMaker_ = std::move(maker); }

private:
    bool launch(const QString& program, QString* error);

    std::unique_ptr<FrameLog> log_;
    std::unique_ptr<HostSimulator> simulator_;
    std::unique_ptr<LinkServer> server_;
    std::unique_ptr<ControlChannel> control_;
    WindowMaker windowMaker_;
    QProcess* program_ = nullptr;
    QString service_;
    QString programFolder_;
    QString iniFolder_;
    qint64 windowId_ = 0;
    int instrument_ = 1;
    bool offline_ = false;
};

}  // namespace sidekin::hostsim
