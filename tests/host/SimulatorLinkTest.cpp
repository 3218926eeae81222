#include <QFile>
#include <QLineEdit>

#include "AppState.h"
#include "CPLinks.h"
#include "FormsFixture.h"
#include "FrmOrq.h"
#include "HostCommands.h"
#include "HostConversation.h"
#include "ItemFeed.h"
#include "LinkTextBox.h"
#include "ShowHideOrq.h"
#include "SimulatorProcess.h"
#include "StartupFetch.h"

using namespace sidekin;
using namespace sidekin::test;

namespace {

// The program's side of the link against the real host simulator process.
class SimulatorLinkTest : public FormsFixture {
protected:
    void SetUp() override {
        FormsFixture::SetUp();
        setClock(nullptr);
        unloadFrmORQ();
        unloadCPLinks();
        itemfeed::reset();
        host = std::make_unique<SimulatorProcess>(
            QStringList{"--model", "4430", "--run-seconds", "0.2"});
        ASSERT_TRUE(host->started());
        qputenv("ZENTROVAR_CONFIG_DIR", host->configFolder().toUtf8());
        App.GlblDDEApp = host->service();
        App.GlblInstrument = 1;
        App.GlblOffline = "0";
    }
    void TearDown() override {
        unloadFrmORQ();
        unloadCPLinks();
        itemfeed::reset();
        host.reset();
        FormsFixture::TearDown();
    }
    QString ask(const QString& question, const QString& variable) {
        DDEexecute(link(), question);
        DDERequest(link(), variable);
        return link().text();
    }
    LinkTextBox& link() { return *frmORQ().ddeDummy; }
    std::unique_ptr<SimulatorProcess> host;
};

TEST_F(SimulatorLinkTest, EveryQuestionIsAnswered) {
    EXPECT_EQ(ask(commands::TestFor4410, commands::NumberVariable), "0");
    EXPECT_EQ(ask(commands::TestFor4420, commands::NumberVariable), "0");
    EXPECT_EQ(ask(commands::TestFor4430, commands::NumberVariable), "1");
    EXPECT_EQ(ask(commands::FrontTowerCapacity, commands::NumberVariable), "8");
    EXPECT_EQ(ask(commands::InjectorVialRange(1), commands::TextVariable), "101,108");
    EXPECT_EQ(ask(commands::InjectorVialRange(2), commands::TextVariable), "1,100");
    EXPECT_EQ(ask(commands::CheckIfValidVial(2, 50), commands::NumberVariable), "1");
    EXPECT_EQ(ask(commands::CheckIfValidVial(2, 150), commands::NumberVariable), "0");
    EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(SimulatorLinkTest, NameCheckCreatesAndDeletesTheFile) {
    const QString folder = host->configFolder() + "/";
    EXPECT_EQ(ask(commands::NameCheckOpen(folder, "Probe"), commands::NameCheckVariable), "0");
    EXPECT_TRUE(QFile::exists(folder + "Probe"));
    DDEexecute(link(), commands::NameCheckClose);
    DDEexecute(link(), commands::NameCheckDelete(folder, "Probe"));
    EXPECT_FALSE(QFile::exists(folder + "Probe"));
    EXPECT_EQ(
        ask(commands::NameCheckOpen("/no/such/folder/", "Probe"), commands::NameCheckVariable),
        "1");
}

TEST_F(SimulatorLinkTest, RunCommandsAndEveryItemArrive) {
    OpenDDELinks();
    ASSERT_TRUE(waitUntil([] {
        return !App.GlblMethodDir.isEmpty() && !cpLinks().ddeRunEngineStatus->text().isEmpty();
    }));
    EXPECT_TRUE(App.GlblIniFile.endsWith("instrument/ORQ.INI"));
    EXPECT_TRUE(App.GlblDataDir.endsWith("data/"));
    EXPECT_EQ(cpLinks().ddeSystemStatus->text().size(), 80);
    EXPECT_TRUE(cpLinks().ddeSystemStatus->text().startsWith("1|0|SysGreen|Ready|"));
    EXPECT_EQ(dialogs.boxTitles(), QStringList{"VB DDE Error"});

    // The run engine's words raise the flags that end the two waits.
    QObject::connect(cpLinks().ddeRunEngineStatus, &QLineEdit::textChanged, [](const QString& v) {
        if (v.startsWith("LOADED")) App.GlblMethodLoaded = 1;
        if (v.startsWith("RUNNING")) App.GlblRunStarted = 1;
    });
    DDEexecute(link(), commands::SetRunTableVars("Avery", "Sub1"));
    commands::SingleRun run{"FRONTSTD", 1, "S1", 105, "D1", "1.5", "2", "info"};
    DDEExecut_LoadMethod(link(), commands::PrepareSingleRun(run));
    DDEExecute_RunMethod(link(), commands::HostStart(1));
    EXPECT_TRUE(cpLinks().ddeRunEngineStatus->text().startsWith("RUNNING"));
    ASSERT_TRUE(
        waitUntil([] { return cpLinks().ddeRunEngineStatus->text().startsWith("Completed"); }));
    EXPECT_TRUE(QFile::exists(host->dataFolder() + "Sub1/D1.d"));
    DDEExecut_LoadMethod(link(), commands::LoadMethod("BACKSTD"));
    EXPECT_EQ(dialogs.boxTitles(), QStringList{"VB DDE Error"});

    const QStringList executed = host->executed();
    ASSERT_EQ(executed.size(), 4);
    EXPECT_EQ(executed[0], "CPWAIT\tORQ_SetRunTableVars \"Avery\", \"Sub1\"");
    EXPECT_EQ(
        executed[1],
        R"(CPNOWAIT	ORQ_PrepareSingleRun "FRONTSTD", 1, "S1", 105, "D1", "1.5", "2", "", "", "info")");
    EXPECT_EQ(executed[2], "CPNOWAIT\tORQ_HOST_START 1");
    EXPECT_EQ(executed[3], "CPNOWAIT\tORQ_LoadMethod BACKSTD");
}

TEST_F(SimulatorLinkTest, HotLinkFollowsShowValues) {
    frmORQ();
    iNITddesHOWorq();
    EXPECT_EQ(frmORQ().ddeShowORQ->text(), "11\r\n");
    EXPECT_TRUE(frmORQ().isVisible());
    host->control("show 01");
    EXPECT_TRUE(waitUntil([] { return !frmORQ().isVisible(); }));
    host->control("show 00");
    EXPECT_THROW(waitUntil([] { return false; }, 3000), ProgramEnded);
}

}  // namespace
