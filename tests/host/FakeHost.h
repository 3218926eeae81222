#pragma once

#include <QMutex>
#include <QString>
#include <QStringList>
#include <QThread>
#include <map>
#include <memory>
#include <vector>

#include "LinkProtocol.h"

namespace sidekin::test {

class FakeHostServer;

// A scripted host serving link::serverName(service) from its own thread and
// event loop, so that the program may block while waiting for its replies.
// By default: Execute gets Ack; Request gets Data "<value>\r\n" (Refused for an
// unknown item); Advise gets Ack, then an Update with the current value.
class FakeHost {
public:
    enum class Fault {
        None,
        Silent,       // never answers
        Refuse,       // Refused
        Close,        // closes the connection instead of answering
        UnknownVerb,  // a frame with verb 99
        Oversized,    // a length field over 64 KiB
        Late,         // the usual answer, lateMs later
    };
    struct Received {
        int connection;  // 1 for the first accepted, and so on
        link::Frame frame;
    };

    explicit FakeHost(const QString& service);
    ~FakeHost();

    bool listening() const { return listening_; }

    void setValue(const QString& item, const QString& value);   // answered with CR LF behind
    void setRawValue(const QString& item, const QString& raw);  // answered exactly so
    void fail(link::Verb verb, Fault fault);
    void failOn(const QString& text, Fault fault);  // wins over fail(verb)
    // After the Execute of command, push item = value (written before the Ack).
    void reportOn(const QString& command, const QString& item, const QString& value);
    void setLateMs(int ms);

    // Sets the item and sends an Update to every connection advising it; returns once written.
    void push(const QString& item, const QString& value);

    std::vector<Received> received() const;
    // The frames received, as "<connection> <verb> <topic> <name>".
    QStringList log() const;

private:
    friend class FakeHostServer;
    struct Script {
        std::map<QString, QString> raw;
        std::map<link::Verb, Fault> verbFaults;
        std::map<QString, Fault> textFaults;
        std::map<QString, std::pair<QString, QString>> reports;
        int lateMs = 300;
        std::vector<Received> received;
    };

    mutable QMutex mutex_;
    Script script_;
    QThread thread_;
    FakeHostServer* server_ = nullptr;
    bool listening_ = false;
};

}  // namespace sidekin::test
