#include <gtest/gtest.h>

#include <QFile>
#include <QLocalSocket>

#include "LinkProtocol.h"
#include "SimulatorProcess.h"

using namespace sidekin::test;
namespace lp = sidekin::link;

// The simulator as the front end meets it: it launches the program with the
// five-field command line and the profile folder, then serves its items.
TEST(HostSimProcess, LaunchesTheFrontEndAndServesItsItems) {
    TempFolder dir;
    const QString program =
        dir.write("front-end.sh",
                  "#!/bin/sh\necho \"$1 $ZENTROVAR_CONFIG_DIR\" > \"$(dirname \"$0\")/out\"\n");
    QFile::setPermissions(program, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    SimulatorProcess host({"--instrument", "2", "--offline", "--launch", program});
    ASSERT_TRUE(host.started());
    const QByteArray launched = "0|" + host.service().toUtf8() + "|\"" + dir.path().toUtf8() +
                                "/\"|2|1 " + host.configFolder().toUtf8() + "\n";
    EXPECT_TRUE(waitUntil([&] { return dir.read("out") == launched; })) << dir.read("out").data();

    QLocalSocket socket;
    lp::FrameReader reader;
    QList<lp::Frame> frames;
    QObject::connect(&socket, &QLocalSocket::readyRead, &socket, [&] {
        reader.feed(socket.readAll());
        while (auto frame = reader.next()) frames << *frame;
    });
    socket.setSocketOptions(QLocalSocket::AbstractNamespaceOption);
    socket.connectToServer(lp::serverName(host.service()));
    socket.write(lp::encode({lp::Verb::Advise, 1, lp::TopicNoWait, "ShowORQ$", {}}));
    ASSERT_TRUE(waitUntil([&] { return !frames.isEmpty(); }));
    EXPECT_EQ(frames.front().verb, lp::Verb::Ack);
    host.control("show 01");
    EXPECT_TRUE(waitUntil([&] {
        return frames.size() > 1 && frames.back().verb == lp::Verb::Update &&
               frames.back().name == "ShowORQ$" && frames.back().value == "01" + lp::LineEnd;
    }));
}
