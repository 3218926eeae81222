#include <signal.h>

#include "AppState.h"
#include "ErrorOf.h"
#include "FormsFixture.h"
#include "FrmOrq.h"
#include "HostItems.h"
#include "HostLink.h"
#include "LinkProtocol.h"
#include "LinkTextBox.h"
#include "ShowHideOrq.h"
#include "SimulatorProcess.h"

using namespace sidekin;
using namespace sidekin::test;

namespace {

// The program's side of the link against the real host simulator process.
class SimulatorLinkTest : public FormsFixture {
protected:
    void SetUp() override {
        FormsFixture::SetUp();
        setClock(nullptr);
        host = std::make_unique<SimulatorProcess>(
            QStringList{"--model", "4430", "--run-seconds", "0.2"});
        ASSERT_TRUE(host->started());
        qputenv("ZENTROVAR_CONFIG_DIR", host->configFolder().toUtf8());
        App.GlblDDEApp = host->service();
        App.GlblInstrument = 1;
        App.GlblOffline = "0";
    }
    void TearDown() override {
        FormsFixture::TearDown();
        host.reset();
    }
    std::unique_ptr<SimulatorProcess> host;
};

TEST_F(SimulatorLinkTest, SocketFaultsBecomeTheLinkErrors) {
    auto channel = link::hostLink().open(host->service());
    QStringList seen;
    QObject::connect(
        channel.get(), &link::Channel::itemUpdated,
        [&](const QString& item, const QString& value) { seen << item + "=" + value; });
    channel->advise(link::TopicNoWait, items::ShowOrq, 2000);
    EXPECT_TRUE(seen.isEmpty());  // handed on after the operation, never inside it
    EXPECT_TRUE(waitUntil([&] { return seen == QStringList{"ShowORQ$=11\r\n"}; }));
    EXPECT_EQ(errorOf([&] { channel->request(link::TopicWait, "NoSuchItem$", 2000); }),
              link::ErrRefused);

    ::kill(static_cast<pid_t>(host->pid()), SIGSTOP);
    EXPECT_EQ(errorOf([&] { channel->request(link::TopicWait, items::DataPath, 200); }),
              link::ErrTimeout);
    ::kill(static_cast<pid_t>(host->pid()), SIGCONT);
    // The late answer to the question given up is passed over.
    EXPECT_EQ(channel->request(link::TopicWait, items::ShowOrq, 2000), "11\r\n");

    for (auto [fault, error] :
         {std::pair{"--garbage-after", link::ErrBadData}, {"--close-after", link::ErrHostQuit}}) {
        SimulatorProcess faulty({fault, "1"});
        ASSERT_TRUE(faulty.started());
        auto broken = link::hostLink().open(faulty.service());
        EXPECT_EQ(errorOf([&] { broken->request(link::TopicWait, items::ShowOrq, 2000); }), error)
            << fault;
        EXPECT_EQ(errorOf([&] { broken->request(link::TopicWait, items::ShowOrq, 2000); }),
                  error == link::ErrBadData ? link::ErrBadData : link::ErrNoChannel);
    }
    EXPECT_EQ(errorOf([] { link::hostLink().open("NobodyServesThis"); }), link::ErrNoHost);
}

TEST_F(SimulatorLinkTest, HotLinkFollowsShowValuesAndEndsTheProgram) {
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
