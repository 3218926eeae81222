#pragma once

#include <QCoreApplication>
#include <QLocalSocket>
#include <QTimer>
#include <functional>
#include <optional>
#include <vector>

#include "LinkProtocol.h"
#include "QtPrinters.h"

namespace sidekin::test {

// Serves events until done() holds or ms have passed; the timer wakes the loop.
inline bool waitFor(const std::function<bool()>& done, int ms = 5000) {
    QTimer limit;
    limit.setSingleShot(true);
    limit.start(ms);
    while (!done()) {
        if (!limit.isActive()) return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

// The program's end of the link, frame by frame, with nothing hidden.
class LinkClient {
public:
    explicit LinkClient(const QString& service) {
        socket.setSocketOptions(QLocalSocket::AbstractNamespaceOption);
        QObject::connect(&socket, &QLocalSocket::readyRead, &socket, [this] {
            reader.feed(socket.readAll());
            while (auto frame = reader.next()) frames.push_back(*frame);
        });
        socket.connectToServer(link::serverName(service));
        waitFor([this] { return socket.state() != QLocalSocket::ConnectingState; });
    }

    bool connected() const { return socket.state() == QLocalSocket::ConnectedState; }

    std::uint32_t send(link::Verb verb, const QString& topic, const QString& name) {
        const std::uint32_t id = nextId++;
        socket.write(link::encode(link::Frame{verb, id, topic, name, {}}));
        socket.flush();
        return id;
    }

    void sendRaw(const QByteArray& bytes) {
        socket.write(bytes);
        socket.flush();
    }

    // The reply to id; nullopt when none came in time.
    std::optional<link::Frame> answer(std::uint32_t id, int ms = 5000) {
        std::optional<link::Frame> found;
        waitFor(
            [&] {
                for (const link::Frame& f : frames)
                    if (f.id == id && f.verb != link::Verb::Update) found = f;
                return found.has_value() || !connected();
            },
            ms);
        return found;
    }

    std::optional<link::Frame> ask(link::Verb verb, const QString& topic, const QString& name) {
        return answer(send(verb, topic, name));
    }

    // Executes on CPWAIT and reads the variable, as the program asks its questions.
    QString question(const QString& command, const QString& variable) {
        auto done = ask(link::Verb::Execute, link::TopicWait, command);
        if (!done || done->verb != link::Verb::Ack) return QStringLiteral("<not done>");
        auto data = ask(link::Verb::Request, link::TopicWait, variable);
        return data && data->verb == link::Verb::Data ? data->value : QStringLiteral("<no data>");
    }

    QStringList updates(const QString& item) const {
        QStringList values;
        for (const link::Frame& f : frames)
            if (f.verb == link::Verb::Update && f.name == item) values << f.value;
        return values;
    }

    bool waitForUpdate(const QString& item, const QString& value, int ms = 5000) {
        return waitFor([&] { return updates(item).contains(value); }, ms);
    }

    bool waitClosed(int ms = 5000) {
        return waitFor([this] { return !connected(); }, ms);
    }

    QLocalSocket socket;
    link::FrameReader reader;
    std::vector<link::Frame> frames;
    std::uint32_t nextId = 1;
};

}  // namespace sidekin::test
