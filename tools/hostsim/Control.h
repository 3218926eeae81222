#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

class QLocalServer;
class QSocketNotifier;

namespace sidekin::hostsim {

class HostSimulator;

struct ControlReply {
    QString text;  // "ok", "ok <value>" or "error: <why>"
    bool quit = false;
};

// One control line from an operator or a test, e.g. "show 01" or "fault abort 2".
ControlReply applyControl(HostSimulator& simulator, const QString& line);

// Control lines from standard input and, if asked, from a local socket.
class ControlChannel : public QObject {
    Q_OBJECT
public:
    explicit ControlChannel(HostSimulator& simulator, QObject* parent = nullptr);

    void readStandardInput();
    bool listen(const QString& name, QString* error);

signals:
    void quitRequested();

private:
    void stdinReady();
    void takeInput(const QByteArray& piece);
    QString handle(const QString& line);

    HostSimulator& simulator_;
    QSocketNotifier* stdin_ = nullptr;
    QByteArray pending_;
    QLocalServer* server_ = nullptr;
};

}  // namespace sidekin::hostsim
