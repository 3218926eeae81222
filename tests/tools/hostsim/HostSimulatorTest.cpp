#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QtEndian>

#include "DemoSet.h"
#include "FrameLog.h"
#include "HostSimulator.h"
#include "LinkClient.h"
#include "LinkServer.h"
#include "TempFolder.h"

using namespace sidekin::hostsim;
namespace items = sidekin::items;
using sidekin::link::Frame;
using sidekin::link::Verb;
using namespace sidekin::test;

namespace {

const QString Wait = sidekin::link::TopicWait;
const QString NoWait = sidekin::link::TopicNoWait;
const QString CRLF = sidekin::link::LineEnd;

// Item values as they travel: each with the line end.
QStringList sent(QStringList values) {
    for (QString& v : values) v += sidekin::link::LineEnd;
    return values;
}

QString prepareCommand(const QString& dataFile) {
    return QStringLiteral(
               R"(ORQ_PrepareSingleRun "FRONTSTD", 1, "Blank", 101, "%1", "", "", "", "", "")")
        .arg(dataFile);
}

class HostSim : public ::testing::Test {
protected:
    void SetUp() override {
        static int count = 0;
        service = QStringLiteral("hostsim-test-%1-%2")
                      .arg(QCoreApplication::applicationPid())
                      .arg(++count);
        QString error;
        ASSERT_TRUE(installDemoSet(root.path(), false, &error)) << error.toStdString();
        ASSERT_TRUE(log.open(root.file("frames.log"), &error));
        config.runSeconds = 0.2;
        config.publishMs = 20;
        start();
    }

    void start() {
        server.reset();
        sim = std::make_unique<HostSimulator>(config, demoFolders(root.path()));
        sim->setLog(&log);
        server = std::make_unique<LinkServer>(*sim);
        QString error;
        ASSERT_TRUE(server->listen(service, &error)) << error.toStdString();
    }

    // Prepares and starts run row on the client, as the program does, and waits for its end.
    void runRow(LinkClient& client, int row, const QString& dataFile, const QString& endWord) {
        client.ask(Verb::Advise, NoWait, items::RunEngine);
        client.ask(Verb::Execute, NoWait, prepareCommand(dataFile));
        client.ask(Verb::Execute, NoWait, QStringLiteral("ORQ_HOST_START %1").arg(row));
        ASSERT_TRUE(client.waitForUpdate(items::RunEngine, endWord + CRLF));
    }

    QStringList logLines() const {
        return QString::fromUtf8(root.read("frames.log")).split(u'\n', Qt::SkipEmptyParts);
    }

    TempFolder root;
    QString service;
    SimConfig config;
    FrameLog log;
    std::unique_ptr<HostSimulator> sim;
    std::unique_ptr<LinkServer> server;
};

}  // namespace

TEST_F(HostSim, RequestAnswersTheValueWithLineEnd) {
    LinkClient client(service);
    const Folders folders = demoFolders(root.path());
    const struct {
        QString item;
        std::optional<QString> value;
    } rows[] = {
        {"_DATAPATH$", folders.data + CRLF},
        {"_INSTPATH$", folders.instrument + CRLF},
        {"_methpath$", folders.methods + CRLF},
        {"ShowORQ$", "11" + CRLF},
        {"ORQ_RunEngineStatus$", "Idle" + CRLF},
        {"GUISystemStatus$", HostSimulator::readyStatus() + CRLF},
        {"GUIStatusTime$", "Elapsed|0.0|min" + CRLF},
        {"NoSuchItem$", std::nullopt},
        {"ddeORQ", std::nullopt},  // exists only once assigned
    };
    for (const auto& row : rows) {
        const auto reply = client.ask(Verb::Request, Wait, row.item);
        ASSERT_TRUE(reply) << row.item.toStdString();
        if (row.value) {
            EXPECT_EQ(reply->verb, Verb::Data) << row.item.toStdString();
            EXPECT_EQ(reply->value, *row.value);
        } else {
            EXPECT_EQ(reply->verb, Verb::Refused) << row.item.toStdString();
        }
    }
    EXPECT_EQ(client.ask(Verb::Request, "SYSTEM", "ShowORQ$")->verb, Verb::Refused);
}

TEST_F(HostSim, AdvisePushesTheValueNowAndAtEachChange) {
    LinkClient watcher(service);
    LinkClient other(service);
    const std::uint32_t id = watcher.send(Verb::Advise, NoWait, "ShowORQ$");
    ASSERT_TRUE(watcher.waitForUpdate("ShowORQ$", "11" + CRLF));
    ASSERT_GE(watcher.frames.size(), 2u);
    EXPECT_EQ(watcher.frames[0].verb, Verb::Ack);
    EXPECT_EQ(watcher.frames[0].id, id);
    EXPECT_EQ(watcher.frames[1].id, 0u);

    sim->publish("ShowORQ$", "01");
    sim->publish("SHOWORQ$", "01");  // no change, nothing sent
    sim->publish("ShowORQ$", "00");
    ASSERT_TRUE(watcher.waitForUpdate("ShowORQ$", "00" + CRLF));
    EXPECT_EQ(watcher.updates("ShowORQ$"), sent({"11", "01", "00"}));

    EXPECT_EQ(other.ask(Verb::Advise, NoWait, "NoSuchItem$")->verb, Verb::Refused);
    EXPECT_TRUE(other.updates("ShowORQ$").isEmpty());
}

TEST_F(HostSim, WaitTopicFinishesBeforeTheAckNoWaitAfter) {
    for (const QString& topic : {Wait, NoWait}) {
        SCOPED_TRACE(topic.toStdString());
        LinkClient client(service);
        client.ask(Verb::Advise, NoWait, items::RunEngine);
        const std::uint32_t id = client.send(Verb::Execute, topic, prepareCommand("ORDER"));
        ASSERT_TRUE(client.waitForUpdate(items::RunEngine, "LOADED" + CRLF));
        ASSERT_TRUE(client.answer(id));
        auto position = [&](auto match) {
            return std::find_if(client.frames.begin(), client.frames.end(), match) -
                   client.frames.begin();
        };
        const auto ack =
            position([&](const Frame& f) { return f.id == id && f.verb == Verb::Ack; });
        const auto loading = position([](const Frame& f) { return f.value == "LOADING" + CRLF; });
        if (topic == Wait) {
            EXPECT_LT(loading, ack);
        } else {
            EXPECT_LT(ack, loading);
        }
        sim->publish(items::RunEngine, "Idle");
    }
}

TEST_F(HostSim, CommandsThatDoNotParseAreRefusedAndChangeNothing) {
    LinkClient client(service);
    for (const QString& topic : {Wait, NoWait}) {
        const auto reply = client.ask(Verb::Execute, topic, "ORQ_HOST_START x");
        ASSERT_TRUE(reply);
        EXPECT_EQ(reply->verb, Verb::Refused);
        EXPECT_FALSE(reply->value.isEmpty());
    }
    EXPECT_EQ(client.ask(Verb::Execute, "OTHER", prepareCommand("X"))->verb, Verb::Refused);
    EXPECT_EQ(client.ask(Verb::Ack, Wait, "x")->verb, Verb::Refused);
    EXPECT_EQ(sim->value(items::RunEngine), "Idle");
}

TEST_F(HostSim, ARunPublishesItsCourseAndLeavesItsDataFolder) {
    for (const QString subdirectory : {"Batch 7", ""}) {
        SCOPED_TRACE(subdirectory.toStdString());
        sim->publish(items::RunEngine, "Idle");
        LinkClient client(service);
        client.ask(Verb::Advise, NoWait, items::SystemStatus);
        client.ask(Verb::Advise, NoWait, items::StatusTime);
        EXPECT_EQ(client
                      .ask(Verb::Execute, Wait,
                           QStringLiteral(R"(ORQ_SetRunTableVars "Avery", "%1")").arg(subdirectory))
                      ->verb,
                  Verb::Ack);
        runRow(client, 1, "RUN01", "Completed");

        EXPECT_EQ(client.updates(items::RunEngine),
                  sent({"Idle", "LOADING", "LOADED", "RUNNING", "Completed"}));
        const QStringList system = client.updates(items::SystemStatus);
        EXPECT_TRUE(system.contains(HostSimulator::runningStatus() + CRLF));
        EXPECT_EQ(system.last(), HostSimulator::readyStatus() + CRLF);
        const QStringList times = client.updates(items::StatusTime);
        ASSERT_FALSE(times.isEmpty());
        const QRegularExpression timeFormat(R"(^Elapsed\|\d+\.\d\|min\r\n$)");
        for (const QString& t : times)
            EXPECT_TRUE(timeFormat.match(t).hasMatch()) << t.toStdString();

        const QString data = demoFolders(root.path()).data;
        const QString folder =
            data + (subdirectory.isEmpty() ? "" : subdirectory + "/") + "RUN01.d";
        EXPECT_TRUE(QFileInfo(folder).isDir()) << folder.toStdString();
        EXPECT_TRUE(QFile(folder + "/run.txt").exists());
        QDir(data).removeRecursively();
        QDir().mkpath(data);
    }
}

TEST_F(HostSim, EachLoadIsAChangeEvenWhenAlreadyLoaded) {
    LinkClient client(service);
    client.ask(Verb::Advise, NoWait, items::RunEngine);
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(client.ask(Verb::Execute, NoWait, "ORQ_LoadMethod FRONTSTD")->verb, Verb::Ack);
    ASSERT_TRUE(waitUntil([&] { return client.updates(items::RunEngine).size() == 5; }));
    EXPECT_EQ(client.updates(items::RunEngine).mid(1),
              sent({"LOADING", "LOADED", "LOADING", "LOADED"}));
}

TEST_F(HostSim, RunFaultsChangeWhatIsReported) {
    const struct {
        const char* name;
        std::set<int> abortRuns;
        bool noLoaded, noRunning;
        QStringList words;  // after Idle; an abort leaves no data folder
    } rows[] = {
        {"abort", {1}, false, false, {"LOADING", "LOADED", "RUNNING", "Aborted"}},
        {"no LOADED", {}, true, false, {"LOADING", "RUNNING", "Completed"}},
        {"no RUNNING", {}, false, true, {"LOADING", "LOADED", "Completed"}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        config = SimConfig{};
        config.runSeconds = 0;
        config.faults.abortRuns = row.abortRuns;
        config.faults.noLoaded = row.noLoaded;
        config.faults.noRunning = row.noRunning;
        start();
        LinkClient client(service);
        runRow(client, 1, "F1", row.words.last());
        EXPECT_EQ(client.updates(items::RunEngine), sent(QStringList{"Idle"} + row.words));
        const bool completed = row.words.last() == "Completed";
        const QString folder = demoFolders(root.path()).data + "F1.d";
        EXPECT_EQ(QFileInfo(folder).isDir(), completed);
        QDir(folder).removeRecursively();
        EXPECT_EQ(sim->value(items::SystemStatus) == HostSimulator::abortedStatus(), !completed);
    }
}

TEST_F(HostSim, NameCheckCreatesAndDeletesARealFile) {
    const QString folder = root.path() + "/orq/";
    QDir().mkpath(folder);
    const struct {
        QString folder;
        bool exists;
    } rows[] = {
        {folder, true},
        {QString(folder).replace('/', '\\'),
         true},  // the program's folder may come with backslashes
        {root.path() + "/missing/folder/", false},
    };
    LinkClient client(service);
    for (const auto& row : rows) {
        SCOPED_TRACE(row.folder.toStdString());
        const QString name = "NAME1.TXT";
        const QString onDisk = (row.exists ? folder : root.path() + "/missing/folder/") + name;
        const auto opened = client.ask(
            Verb::Execute, Wait,
            QStringLiteral(
                R"(ORQNameCheck=0;On Error ORQNameCheck=1;Open "%1%2" For Output As #3; On Error)")
                .arg(row.folder, name));
        ASSERT_EQ(opened->verb, Verb::Ack);
        EXPECT_EQ(QFileInfo::exists(onDisk), row.exists);
        EXPECT_EQ(client.ask(Verb::Request, Wait, "ORQNameCheck")->value,
                  (row.exists ? "0" : "1") + CRLF);
        if (!row.exists) continue;
        EXPECT_EQ(client.ask(Verb::Execute, Wait, "Close #3")->verb, Verb::Ack);
        EXPECT_EQ(client
                      .ask(Verb::Execute, Wait,
                           QStringLiteral(R"(Delete "%1%2",DontAsk)").arg(row.folder, name))
                      ->verb,
                  Verb::Ack);
        EXPECT_FALSE(QFileInfo::exists(onDisk));
    }
    // Without a trap a failing statement refuses the command.
    EXPECT_EQ(
        client.ask(Verb::Execute, Wait, QStringLiteral(R"(Delete "%1gone",DontAsk)").arg(folder))
            ->verb,
        Verb::Refused);
}

TEST_F(HostSim, QuestionsAnswerForTheConfiguredInstrument) {
    const QString valid = R"(ddeORQ = ORQCheckIfValidVial(%1,%2))";
    const QString test4410 = R"(ddeORQ = TestForDevice("4410", 0, ""))";
    const QString test4420 = R"(ddeORQ = MyTestForDevice("RC4420", 0, ""))";
    const QString test4430 = R"(ddeORQ = MyTestForDevice("RC4430", 0, ""))";
    const struct {
        QString model;
        QString backValid;
        QString command;
        QString variable;
        QString answer;
    } rows[] = {
        {"4410", "", test4410, "ddeORQ", "1"},
        {"4410", "", test4420, "ddeORQ", "0"},
        {"4420", "", test4420, "ddeORQ", "1"},
        {"4430", "", test4430, "ddeORQ", "1"},
        {"none", "", test4410, "ddeORQ", "0"},
        {"none", "", test4430, "ddeORQ", "0"},
        {"none", "", valid.arg(" 1", " 108"), "ddeORQ", "1"},
        {"none", "", valid.arg(" 1", " 100"), "ddeORQ", "0"},
        {"none", "", valid.arg(" 2", " 150"), "ddeORQ", "0"},
        {"none", "1-150", valid.arg(" 2", " 150"), "ddeORQ", "1"},
        {"none", "", valid.arg(" 3", " 1"), "ddeORQ", "0"},
        {"4420", "", R"(ddeORQ = RCGetResourceVal("GC1","config",  "ALS.Fr.Capacity"))", "ddeORQ",
         "8"},
        {"none", "", "ddeORQ$ = ORQGetInjectorVialRange$(1)", "ddeORQ$", "101,108"},
        {"none", "", "ddeORQ$ = ORQGetInjectorVialRange$(2)", "ddeORQ$", "1,100"},
    };
    LinkClient client(service);
    for (const auto& row : rows) {
        sim->config().model = row.model;
        sim->config().backValid =
            row.backValid.isEmpty() ? std::nullopt : VialSet::parse(row.backValid);
        EXPECT_EQ(client.question(row.command, row.variable), row.answer + CRLF)
            << row.model.toStdString() << ": " << row.command.toStdString();
    }
    EXPECT_EQ(client.ask(Verb::Execute, Wait, "ddeORQ$ = ORQGetInjectorVialRange$(3)")->verb,
              Verb::Refused);
}

TEST_F(HostSim, RangeCanWaitForALoadedMethod) {
    config.rangeNeedsMethod = true;
    start();
    LinkClient client(service);
    const QString ask = "ddeORQ$ = ORQGetInjectorVialRange$(1)";
    EXPECT_EQ(client.question(ask, "ddeORQ$"), "0,0" + CRLF);
    client.ask(Verb::Execute, Wait, "ORQ_LoadMethod FRONTSTD");
    EXPECT_EQ(client.question(ask, "ddeORQ$"), "101,108" + CRLF);
}

TEST_F(HostSim, LogHasOneLinePerFrameInOrder) {
    LinkClient first(service);
    LinkClient second(service);
    first.ask(Verb::Request, Wait, "odd\r\nname\tx\\y");
    second.ask(Verb::Execute, NoWait, "ORQ_LoadMethod FRONTSTD");
    first.ask(Verb::Advise, NoWait, items::ShowOrq);
    ASSERT_TRUE(waitUntil([&] { return logLines().size() >= 3; }));
    EXPECT_EQ(logLines(), (QStringList{
                              "1\t1\tRequest\tCPWAIT\todd\\r\\nname\\tx\\\\y",
                              "2\t2\tExecute\tCPNOWAIT\tORQ_LoadMethod FRONTSTD",
                              "3\t1\tAdvise\tCPNOWAIT\tShowORQ$",
                          }));
}

TEST_F(HostSim, MalformedInputDropsOnlyThatConnection) {
    auto frameWith = [](auto patch) {
        QByteArray bytes = sidekin::link::encode(Frame{Verb::Request, 1, "CPWAIT", "ShowORQ$", {}});
        patch(bytes);
        return bytes;
    };
    const struct {
        const char* name;
        QByteArray bytes;
    } rows[] = {
        {"short length", QByteArray("\0\0\0\3abc", 7)},
        {"unknown verb", frameWith([](QByteArray& b) { b[4] = 99; })},
        {"oversized", frameWith([](QByteArray& b) { qToBigEndian<quint32>(70000, b.data()); })},
        {"text overruns body",
         frameWith([](QByteArray& b) { qToBigEndian<quint32>(500, b.data() + 9); })},
    };
    LinkClient bystander(service);
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        LinkClient client(service);
        client.sendRaw(row.bytes);
        EXPECT_TRUE(waitUntil([&] { return !client.connected(); }));
        EXPECT_EQ(bystander.ask(Verb::Request, Wait, "ShowORQ$")->verb, Verb::Data);
    }
    EXPECT_EQ(logLines().filter("\tMalformed\t").size(), 4);
}

TEST_F(HostSim, ConnectionFaultsFireOnceWhereTold) {
    {
        sim->armCloseAfter(2);
        LinkClient client(service);
        EXPECT_EQ(client.ask(Verb::Request, Wait, "ShowORQ$")->verb, Verb::Data);
        EXPECT_FALSE(client.ask(Verb::Request, Wait, "ShowORQ$"));
        EXPECT_FALSE(client.connected());
        LinkClient next(service);
        EXPECT_EQ(next.ask(Verb::Request, Wait, "ShowORQ$")->verb, Verb::Data);
    }
    {
        sim->armCloseOn("orq_host_start");
        LinkClient client(service);
        EXPECT_EQ(client.ask(Verb::Execute, Wait, "ORQ_LoadMethod M")->verb, Verb::Ack);
        EXPECT_FALSE(client.ask(Verb::Execute, NoWait, "ORQ_HOST_START 1"));
        EXPECT_FALSE(client.connected());
        EXPECT_FALSE(sim->runInProgress());
    }
    {
        sim->armGarbageAfter(1);
        LinkClient client(service);
        client.send(Verb::Request, Wait, "ShowORQ$");
        EXPECT_TRUE(waitUntil([&] { return client.reader.failed(); }));
        LinkClient next(service);
        EXPECT_EQ(next.ask(Verb::Request, Wait, "ShowORQ$")->verb, Verb::Data);
    }
}
