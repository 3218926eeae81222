#pragma once

#include <QElapsedTimer>
#include <QFile>
#include <QHash>
#include <QObject>
#include <QTimer>
#include <map>
#include <memory>
#include <optional>

#include "HostItems.h"
#include "HostScript.h"
#include "LinkProtocol.h"
#include "SimConfig.h"

namespace sidekin::hostsim {

class FrameLog;

// The host's folders, absolute and ending with '/'.
struct Folders {
    QString instrument;
    QString methods;
    QString data;
};

// One conversation as the simulator sees it.
class Peer {
public:
    virtual ~Peer() = default;
    virtual int connection() const = 0;
    virtual void send(const link::Frame& frame) = 0;
    virtual void sendGarbage() = 0;
    virtual void drop() = 0;
    // Sends the item's current value now and each new value later.
    virtual void watch(const QString& item) = 0;
};

// The host: its items and variables, the command interpreter, the run engine
// and the faults it can be told to make.
class HostSimulator : public QObject {
    Q_OBJECT
public:
    HostSimulator(const SimConfig& config, const Folders& folders, QObject* parent = nullptr);
    ~HostSimulator() override;

    SimConfig& config() { return config_; }
    const Folders& folders() const { return folders_; }
    void setLog(FrameLog* log) { log_ = log; }

    // A frame from a conversation; the answer goes back through the peer.
    void receive(Peer& peer, const link::Frame& frame);
    void receiveMalformed(Peer& peer);

    // Items and host variables, names without regard to case.
    std::optional<QString> value(const QString& name) const;
    void publish(const QString& item, const QString& value);

    // Carries out a parsed command at once; false with the reason when a
    // statement failed and no error trap was set.
    bool run(const Script& script, QString* error);

    // Faults counted from now: the nth frame received is dropped / answered with garbage.
    void armCloseAfter(int frames);
    void armCloseOn(const QString& word) { closeOn_ = word; }
    void armGarbageAfter(int frames);
    void clearFaults();

    bool runInProgress() const { return running_; }
    int runRow() const { return runRow_; }
    const QString& loadedMethod() const { return loadedMethod_; }
    // Ends the run in progress now, as its time running out would.
    void finishRunNow();

    static QString readyStatus();
    static QString runningStatus();
    static QString abortedStatus();

signals:
    void itemChanged(const QString& item, const QString& value);
    void runFinished(int row, const QString& word);

private:
    bool step(const Statement& statement, QString* error);
    std::optional<QString> evaluate(const Call& call, QString* error);
    void methodLoaded();
    void startRun(int row);
    void tick();
    void finishRun();
    void writeDataFolder();
    QString elapsedText() const;

    SimConfig config_;
    Folders folders_;
    FrameLog* log_ = nullptr;
    QHash<QString, QString> values_;  // by lower-case name

    int frames_ = 0;
    int closeAt_ = 0;
    int garbageAt_ = 0;
    QString closeOn_;

    std::map<int, std::unique_ptr<QFile>> channels_;

    QString operator_;
    QString subdirectory_;
    QString loadedMethod_;
    std::optional<RunRequest> prepared_;
    std::optional<RunRequest> current_;
    bool running_ = false;
    bool runAborted_ = false;
    int runRow_ = 0;
    QElapsedTimer runClock_;
    QTimer tick_;
    QTimer finish_;
};

}  // namespace sidekin::hostsim
