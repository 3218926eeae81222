#include <gtest/gtest.h>

#include <QFile>
#include <QLocalSocket>
#include <QProcess>

#include "DemoSet.h"
#include "HostSimulator.h"
#include "LinkClient.h"
#include "LinkServer.h"
#include "TempFolder.h"
#include "platform/ProfileFile.h"

using namespace sidekin::hostsim;
using sidekin::link::Verb;
using sidekin::test::LinkClient;
using sidekin::test::TempFolder;
using sidekin::test::waitFor;

namespace {

// The real program, its standard output gathered as it comes.
class HostProcess {
public:
    explicit HostProcess(const QStringList& args) {
        QObject::connect(&process, &QProcess::readyReadStandardOutput, &process,
                         [this] { out += process.readAllStandardOutput(); });
        process.start(HOSTSIM_EXE, args);
    }
    ~HostProcess() {
        if (process.state() != QProcess::NotRunning) {
            process.kill();
            process.waitForFinished(5000);
        }
    }
    bool saw(const QByteArray& line, int ms = 10000) {
        return waitFor([&] { return out.contains(line); }, ms);
    }
    bool finished(int ms = 10000) {
        return waitFor([&] { return process.state() == QProcess::NotRunning; }, ms);
    }

    QProcess process;
    QByteArray out;
};

QString uniqueService(const char* base) {
    return QLatin1String(base) + QString::number(QCoreApplication::applicationPid());
}

}  // namespace

TEST(HostSimProcess, ServesLaunchesTakesControlAndQuits) {
    TempFolder dir;
    const QString service = uniqueService("hostsim-process-");
    const QString controlName = uniqueService("hostsim-control-");
    const QString ini = dir.file("config/zentrovar.ini");
    const QString program = dir.write(
        "front-end.sh", "#!/bin/sh\necho \"launched[$1] config[$ZENTROVAR_CONFIG_DIR]\"\n");
    QFile::setPermissions(program, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);

    HostProcess host({"--service", service, "--root", dir.file("root"), "--log",
                      dir.file("frames.log"), "--run-seconds", "0", "--write-ini", "--ini", ini,
                      "--instrument", "2", "--offline", "--launch", program, "--control",
                      controlName});
    ASSERT_TRUE(host.saw("ready\n")) << host.out.toStdString();

    const QByteArray expected = "launched[0|" + service.toUtf8() + "|\"" + dir.path().toUtf8() +
                                "/\"|2|1] config[" + dir.file("config").toUtf8() + "]";
    EXPECT_TRUE(host.saw(expected)) << host.out.toStdString();
    QString buffer;
    const int n = sidekin::GetPrivateProfileStringA("PCS,2", "_DDEOnLine", "", buffer, 256, ini);
    EXPECT_EQ(buffer.left(n), service);

    LinkClient client(service);
    ASSERT_TRUE(client.connected());
    EXPECT_EQ(client.ask(Verb::Request, sidekin::link::TopicWait, "_INSTPATH$")->value,
              dir.file("root") + "/instrument/" + sidekin::link::LineEnd);
    client.ask(Verb::Advise, sidekin::link::TopicNoWait, "ShowORQ$");
    host.process.write("show 01\n");
    EXPECT_TRUE(client.waitForUpdate("ShowORQ$", "01" + sidekin::link::LineEnd));
    EXPECT_TRUE(host.saw("ok\n"));

    QLocalSocket control;
    control.setSocketOptions(QLocalSocket::AbstractNamespaceOption);
    control.connectToServer(sidekin::link::serverName(controlName));
    QByteArray replies;
    QObject::connect(&control, &QLocalSocket::readyRead, &control,
                     [&] { replies += control.readAll(); });
    control.write("get ShowORQ$\nshow 00\n");
    control.flush();
    EXPECT_TRUE(waitFor([&] { return replies == "ok 01\nok\n"; })) << replies.toStdString();
    EXPECT_TRUE(client.waitForUpdate("ShowORQ$", "00" + sidekin::link::LineEnd));

    host.process.write("quit\n");
    ASSERT_TRUE(host.finished());
    EXPECT_EQ(host.process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(host.process.exitCode(), 0);
    EXPECT_TRUE(QFile(dir.file("frames.log")).size() > 0);
}

TEST(HostSimProcess, RefusesBadOptionsAndATakenName) {
    TempFolder dir;
    for (const QStringList& args :
         {QStringList{"--model", "4450"}, QStringList{"--front-range", "9"},
          QStringList{"--config", dir.file("none.ini")}, QStringList{"extra"}}) {
        HostProcess host(args + QStringList{"--root", dir.file("root")});
        ASSERT_TRUE(host.finished()) << args.join(' ').toStdString();
        EXPECT_EQ(host.process.exitCode(), 2) << args.join(' ').toStdString();
    }

    const QString service = uniqueService("hostsim-taken-");
    HostSimulator sim(SimConfig{}, demoFolders(dir.path()));
    LinkServer server(sim);
    QString error;
    ASSERT_TRUE(server.listen(service, &error));
    HostProcess second({"--service", service, "--root", dir.file("root")});
    ASSERT_TRUE(second.finished());
    EXPECT_EQ(second.process.exitCode(), 1);
    EXPECT_FALSE(second.out.contains("ready"));
}
