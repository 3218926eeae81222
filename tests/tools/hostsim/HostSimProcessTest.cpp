#include <gtest/gtest.h>

#include <QFile>
#include <QLocalSocket>
#include <QProcess>

#include "DemoSet.h"
#include "HostSimulator.h"
#include "LinkClient.h"
#include "LinkServer.h"
#include "platform/ProfileFile.h"

using namespace sidekin::hostsim;
using namespace sidekin::test;
namespace lp = sidekin::link;

namespace {

int exitCode(const QStringList& args) {
    QProcess process;
    process.start(HOSTSIM_EXE, args);
    return process.waitForFinished(10000) ? process.exitCode() : -1;
}

}  // namespace

TEST(HostSimProcess, ServesLaunchesTakesControlAndQuits) {
    TempFolder dir;
    const QString controlName =
        "hostsim-control-" + QString::number(QCoreApplication::applicationPid());
    const QString program =
        dir.write("front-end.sh",
                  "#!/bin/sh\necho \"$1 $ZENTROVAR_CONFIG_DIR\" > \"$(dirname \"$0\")/out\"\n");
    QFile::setPermissions(program, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    SimulatorProcess host({"--run-seconds", "0", "--instrument", "2", "--offline", "--launch",
                           program, "--control", controlName});
    ASSERT_TRUE(host.started());

    const QByteArray launched = "0|" + host.service().toUtf8() + "|\"" + dir.path().toUtf8() +
                                "/\"|2|1 " + host.configFolder().toUtf8() + "\n";
    EXPECT_TRUE(waitUntil([&] { return dir.read("out") == launched; })) << dir.read("out").data();
    QString buffer;
    const int n = sidekin::GetPrivateProfileStringA("PCS,2", "_DDEOnLine", "", buffer, 256,
                                                    host.configFolder() + "/zentrovar.ini");
    EXPECT_EQ(buffer.left(n), host.service());

    LinkClient client(host.service());
    ASSERT_TRUE(client.connected());
    client.ask(lp::Verb::Advise, lp::TopicNoWait, "ShowORQ$");
    host.control("show 01");
    EXPECT_TRUE(client.waitForUpdate("ShowORQ$", "01" + lp::LineEnd));

    QLocalSocket control;
    control.setSocketOptions(QLocalSocket::AbstractNamespaceOption);
    control.connectToServer(lp::serverName(controlName));
    QByteArray replies;
    QObject::connect(&control, &QLocalSocket::readyRead, &control,
                     [&] { replies += control.readAll(); });
    control.write("get ShowORQ$\nshow 00\n");
    control.flush();
    EXPECT_TRUE(waitUntil([&] { return replies == "ok 01\nok\n"; })) << replies.toStdString();
    EXPECT_TRUE(client.waitForUpdate("ShowORQ$", "00" + lp::LineEnd));
    EXPECT_FALSE(host.frames().isEmpty());

    host.control("quit");
    EXPECT_TRUE(waitUntil([&] { return !client.connected(); }));
}

TEST(HostSimProcess, RefusesBadOptionsAndATakenName) {
    TempFolder dir;
    const QStringList root{"--root", dir.file("root")};
    for (const QStringList& args :
         {QStringList{"--model", "4450"}, QStringList{"--front-range", "9"},
          QStringList{"--config", dir.file("none.ini")}, QStringList{"extra"}}) {
        EXPECT_EQ(exitCode(args + root), 2) << args.join(' ').toStdString();
    }
    const QString service = "hostsim-taken-" + QString::number(QCoreApplication::applicationPid());
    HostSimulator sim(SimConfig{}, demoFolders(dir.path()));
    LinkServer server(sim);
    QString error;
    ASSERT_TRUE(server.listen(service, &error));
    EXPECT_EQ(exitCode(QStringList{"--service", service} + root), 1);
}
