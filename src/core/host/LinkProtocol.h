#pragma once

#include <QByteArray>
#include <QString>
#include <cstdint>
#include <optional>

namespace sidekin::link {

// The frames that travel between the program and its host over a local socket.
// See docs/host-link-protocol.md.
enum class Verb : std::uint8_t {
    // program to host
    Execute = 1,  // topic, command
    Request = 2,  // topic, item
    Advise = 3,   // topic, item: push every new value of the item
    // host to program
    Ack = 10,      // the command was taken (CPWAIT: and carried out) / the advise stands
    Data = 11,     // value: the answer to a request, line end included
    Refused = 12,  // value: why the host would not do it
    Update = 13,   // name = item, value: a new value of an advised item
};

struct Frame {
    Verb verb = Verb::Ack;
    std::uint32_t id = 0;  // a reply carries the id of its question; updates carry 0
    QString topic;
    QString name;  // item name, or the command text
    QString value;

    bool operator==(const Frame&) const = default;
};

// Frames larger than this are refused by both ends.
constexpr std::uint32_t MaxFrameBytes = 64 * 1024;

QByteArray encode(const Frame& frame);

// Cuts frames out of a byte stream. Once a frame is malformed or oversized the
// reader stays failed: the stream can no longer be trusted.
class FrameReader {
public:
    void feed(const QByteArray& bytes);
    std::optional<Frame> next();
    bool failed() const { return failed_; }

private:
    QByteArray buffer_;
    bool failed_ = false;
};

// The local server name of a host service, private to the user.
QString serverName(const QString& service);

inline const QString TopicWait = QStringLiteral("CPWAIT");
inline const QString TopicNoWait = QStringLiteral("CPNOWAIT");
inline const QString LineEnd = QStringLiteral("\r\n");

}  // namespace sidekin::link

namespace sidekin::link {

// True when the process at the other end of a connected local socket runs as
// this user; the link is private to the user.
bool peerIsSameUser(qintptr socketDescriptor);

}  // namespace sidekin::link
