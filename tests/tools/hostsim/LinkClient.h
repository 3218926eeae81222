#pragma once

#include <QCoreApplication>
#include <QLocalSocket>
#include <optional>
#include <vector>

#include "LinkProtocol.h"
#include "QtPrinters.h"
#include "SimulatorProcess.h"

namespace sidekin::test {

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
        waitUntil([this] { return socket.state() != QLocalSocket::ConnectingState; });
    }

    bool connected() const { return socket.state() == QLocalSocket::ConnectedState; }

    std::uint32_t send(link::Verb verb, const QString& topic, const QString& name) {
        sendRaw(link::encode(link::Frame{verb, nextId, topic, name, {}}));
        return nextId++;
    }

    void sendRaw(const QByteArray& bytes) {
        socket.write(bytes);
        socket.flush();
    }

    // The reply to id; nullopt when none came in time.
    std::optional<link::Frame> answer(std::uint32_t id) {
        std::optional<link::Frame> found;
        waitUntil([&] {
            for (const link::Frame& f : frames)
                if (f.id == id && f.verb != link::Verb::Update) found = f;
            return found.has_value() || !connected();
        });
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

    bool waitForUpdate(const QString& item, const QString& value) {
        return waitUntil([&] { return updates(item).contains(value); });
    }

    QLocalSocket socket;
    link::FrameReader reader;
    std::vector<link::Frame> frames;
    std::uint32_t nextId = 1;
};

}  // namespace sidekin::test
