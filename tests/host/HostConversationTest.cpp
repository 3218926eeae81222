#include <QElapsedTimer>
#include <QLineEdit>
#include <QTimer>

#include "Conversation.h"
#include "HostCommands.h"
#include "HostConversation.h"
#include "HostItems.h"
#include "HostLinkFixture.h"
#include "LinkTextBox.h"
#include "StartupFetch.h"
#include "platform/ErrorHandler.h"

using namespace sidekin;
using namespace sidekin::test;
using Fault = FakeHost::Fault;
using link::Verb;

namespace {

class HostConversationTest : public HostLinkFixture {
protected:
    // Seconds of fake time a call took.
    double fakeSeconds(const std::function<void()>& call) {
        const QDateTime start = clock.moment;
        call();
        return start.msecsTo(clock.moment) / 1000.0;
    }

    // Opens the item feed and stands in for the run engine's status handler.
    void openFeedWithStatusHandler() {
        App.GlblDDEApp = online;
        OpenDDELinks();
        dialogs.shown.clear();  // its start-up box is the item feed's concern
        QObject::connect(cpLinks().ddeRunEngineStatus, &QLineEdit::textChanged,
                         [](const QString& text) {
                             if (text.startsWith("LOADED")) App.GlblMethodLoaded = 1;
                             if (text.startsWith("RUNNING")) App.GlblRunStarted = 1;
                         });
    }

    LinkTextBox box;  // stands for frmORQ.ddeDummy
    QObject scope;    // timers of a case die with it
};

TEST_F(HostConversationTest, EachOperationOpensItsOwnConversationOnItsTopic) {
    FakeHost host(online);
    host.setValue("ddeORQ", "1");
    clock.stepPerWait = 1.0;
    // LinkTimeout in tenths of a second: 60 s, and 10 min for the run.
    DDERequest(box, "ddeORQ");
    EXPECT_EQ(box.LinkTimeout, 600);
    DDEexecute(box, "ddeORQ = 2");
    EXPECT_EQ(box.LinkTimeout, 600);
    QTimer::singleShot(0, &scope, [] { App.GlblMethodLoaded = 1; });  // served inside the wait
    DDEExecut_LoadMethod(box, "ORQ_LoadMethod DEF");
    EXPECT_EQ(box.LinkTimeout, 600);
    DDEExecute_RunMethod(box, "ORQ_HOST_START 1");
    EXPECT_EQ(box.LinkTimeout, 6000);

    EXPECT_EQ(host.log(), QStringList({"1 Request CPWAIT ddeORQ", "2 Execute CPWAIT ddeORQ = 2",
                                       "3 Execute CPNOWAIT ORQ_LoadMethod DEF",
                                       "4 Execute CPNOWAIT ORQ_HOST_START 1"}));
    EXPECT_EQ(box.text(), "1");  // the executes leave Text and LinkItem alone
    EXPECT_EQ(box.LinkItem, "ddeORQ");
    EXPECT_EQ(App.GlblMethodLoaded, 0);
    EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(HostConversationTest, RequestDropsTheLastTwoCharactersAndOuterBlanks) {
    FakeHost host(online);
    const struct {
        const char* raw;
        const char* text;
    } cases[] = {
        {"  12  34 \r\n", "12  34"},
        {"\r\n", ""},
        {"A|\"B\"\r\n", "A|\"B\""},
        {"ABCD", "AB"},
    };
    for (const auto& c : cases) {
        host.setRawValue("v", c.raw);
        DDERequest(box, "v");
        EXPECT_EQ(box.text(), c.text) << c.raw;
    }
    EXPECT_TRUE(dialogs.shown.empty());

    host.setRawValue("v", "7");
    DDERequest(box, "v");
    EXPECT_EQ(dialogs.shown, plainBox("Invalid procedure call or argument", "DDERequest"));
}

TEST_F(HostConversationTest, OfflineFlagChoosesTheService) {
    FakeHost onlineHost(online), offlineHost(offline);
    onlineHost.setValue("x", "on");
    offlineHost.setValue("x", "off");
    const struct {
        const char* flag;
        const char* text;  // empty: refused before anything is sent
    } cases[] = {{"1", "off"}, {"1.0", "off"}, {" 1", "off"}, {"0", "on"}, {"2", "on"}, {"", ""}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.flag);
        dialogs.shown.clear();
        box.setText("stale");
        const size_t sent = onlineHost.received().size() + offlineHost.received().size();
        App.GlblOffline = c.flag;
        DDERequest(box, "x");
        if (*c.text) {
            EXPECT_EQ(box.text(), c.text);
            EXPECT_TRUE(dialogs.shown.empty());
        } else {
            EXPECT_EQ(dialogs.shown, plainBox("Type mismatch", "DDERequest"));
            EXPECT_EQ(onlineHost.received().size() + offlineHost.received().size(), sent);
        }
    }
}

TEST_F(HostConversationTest, WithoutHostTheOperationsReportError282) {
    const QString words = "No foreign application responded to a DDE initiate";
    const struct {
        const char* title;
        std::function<void(LinkTextBox&)> call;
    } cases[] = {
        {"DDERequest", [](LinkTextBox& b) { DDERequest(b, "ddeORQ"); }},
        {"DDEexecute", [](LinkTextBox& b) { DDEexecute(b, "Close #3"); }},
        {"DDEExecut_LoadMethod",
         [](LinkTextBox& b) { DDEExecut_LoadMethod(b, "ORQ_LoadMethod X"); }},
    };
    for (const auto& c : cases) {
        dialogs.shown.clear();
        c.call(box);
        EXPECT_EQ(dialogs.shown, plainBox(words, c.title));
    }
    // The run's wait has no handler of its own before the send: its caller gets the error.
    dialogs.shown.clear();
    EXPECT_EQ(errorOf([&] { DDEExecute_RunMethod(box, "ORQ_HOST_START 1"); }), link::ErrNoHost);
    EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(HostConversationTest, HostFaultsEndInTheOperationsBoxAndTheNextCallWorks) {
    FakeHost host(online);
    host.setValue("ddeORQ", "5");
    const QString refused = "Foreign application won't perform DDE method or operation";
    const QString quit = "Foreign application quit";
    const QString badData = "Data in wrong format";
    const struct {
        const char* title;
        Verb verb;
        Fault fault;
        QString words;
    } cases[] = {
        {"DDERequest", Verb::Request, Fault::Refuse, refused},
        {"DDERequest", Verb::Request, Fault::Close, quit},
        {"DDERequest", Verb::Request, Fault::UnknownVerb, badData},
        {"DDERequest", Verb::Request, Fault::Oversized, badData},
        {"DDEexecute", Verb::Execute, Fault::Refuse, refused},
        {"DDEexecute", Verb::Execute, Fault::Close, quit},
        {"DDEExecut_LoadMethod", Verb::Execute, Fault::Refuse, refused},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.words.toStdString());
        dialogs.shown.clear();
        host.fail(c.verb, c.fault);
        if (c.verb == Verb::Request) {
            DDERequest(box, "ddeORQ");
            EXPECT_EQ(box.text(), "");
        } else if (c.title == QLatin1String("DDEexecute")) {
            DDEexecute(box, "ddeORQ = 5");
        } else {
            bool waited = false;  // the wait must not be reached
            QTimer::singleShot(0, &scope, [&] { waited = true, App.GlblMethodLoaded = 1; });
            DDEExecut_LoadMethod(box, "ORQ_LoadMethod DEF");
            EXPECT_FALSE(waited);
            QCoreApplication::processEvents();  // the timer goes while waited lives
        }
        EXPECT_EQ(dialogs.shown, plainBox(c.words, c.title));
        host.fail(c.verb, Fault::None);
        DDEexecute(box, "ddeORQ = 5");
        DDERequest(box, "ddeORQ");
        EXPECT_EQ(box.text(), "5");
        EXPECT_EQ(dialogs.shown.size(), 1u);
    }
}

TEST_F(HostConversationTest, LinkWithoutChannelGivesThePlatformsWords) {
    handled("caller", [&] { box.LinkRequest(); });
    EXPECT_EQ(dialogs.shown, plainBox("DDE method invoked with no channel open", "caller"));
}

TEST_F(HostConversationTest, LinkGivesUpAtItsTimeoutAndIgnoresTheLateReply) {
    FakeHost host(online);
    host.fail(Verb::Execute, Fault::Silent);
    host.setValue("first", "A");
    host.setValue("second", "B");
    host.fail(Verb::Request, Fault::Late);
    host.setLateMs(500);
    box.LinkTopic = online + "|" + link::TopicWait;
    box.setLinkMode(LinkTextBox::Manual);
    box.LinkTimeout = 2;
    QElapsedTimer elapsed;
    elapsed.start();
    EXPECT_EQ(errorOf([&] { box.LinkExecute("ORQ_HOST_START 1"); }), link::ErrTimeout);
    EXPECT_GE(elapsed.elapsed(), 150);
    EXPECT_LT(elapsed.elapsed(), 3000);

    box.LinkItem = "first";
    EXPECT_EQ(errorOf([&] { box.LinkRequest(); }), link::ErrTimeout);
    box.LinkItem = "second";
    box.LinkTimeout = 30;
    box.LinkRequest();  // the reply to "first" arrives on the way
    EXPECT_EQ(box.text(), "B\r\n");
}

TEST_F(HostConversationTest, UpdatesReadDuringAnOperationAreHandedOnAfterIt) {
    FakeHost host(online);
    host.setValue("Status", "A");
    host.setValue("q", "1");
    QStringList seen;
    auto conversation = link::Conversation::open(online);
    QObject::connect(
        conversation.get(), &link::Conversation::itemUpdated,
        [&](const QString& item, const QString& value) { seen << item + "=" + value; });
    conversation->advise(link::TopicNoWait, "Status", 2000);
    host.push("Status", "B");
    EXPECT_EQ(conversation->request(link::TopicWait, "q", 2000), "1\r\n");
    EXPECT_TRUE(seen.isEmpty());
    EXPECT_TRUE(serveUntil([&] { return seen.size() == 2; }));
    EXPECT_EQ(seen, QStringList({"Status=A\r\n", "Status=B\r\n"}));
}

TEST_F(HostConversationTest, LoadMethodReturnsOnTheHostsLoadedReport) {
    FakeHost host(online);
    host.reportOn("ORQ_LoadMethod DEF", items::RunEngine, "LOADED|DEF");
    openFeedWithStatusHandler();
    App.GlblMethodLoaded = 1;  // an old report: cleared before the send
    bool expired = false;
    QTimer::singleShot(5000, &scope, [&] { expired = true, App.GlblMethodLoaded = 1; });
    DDEExecut_LoadMethod(box, "ORQ_LoadMethod DEF");
    EXPECT_FALSE(expired);
    EXPECT_TRUE(cpLinks().ddeRunEngineStatus->text().startsWith("LOADED|DEF"));
    EXPECT_EQ(App.GlblMethodLoaded, 0);
    EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(HostConversationTest, LoadMethodWaitsWithoutLimitServingEvents) {
    FakeHost host(online);
    clock.stepPerWait = 600;
    const QDateTime start = clock.moment;
    int served = 0;
    QTimer operatorEvents;
    QObject::connect(&operatorEvents, &QTimer::timeout, [&] {
        ++served;
        if (start.secsTo(clock.moment) >= 5 * 3600) App.GlblMethodLoaded = 1;
    });
    operatorEvents.start(0);
    DDEExecut_LoadMethod(box, "ORQ_LoadMethod DEF");
    EXPECT_GE(start.secsTo(clock.moment), 5 * 3600);
    EXPECT_GE(served, 30);
    EXPECT_EQ(App.GlblMethodLoaded, 0);
}

TEST_F(HostConversationTest, RunMethodWaitsForRunningOrFortyFiveSeconds) {
    FakeHost host(online);
    host.reportOn("ORQ_HOST_START 1", items::RunEngine, "RUNNING|1");
    host.failOn("ORQ_HOST_START 3", Fault::Refuse);
    openFeedWithStatusHandler();
    clock.stepPerWait = 1.0;
    const struct {
        const char* what;
        double startTime;
        std::int16_t staleFlag;
        const char* command;  // row 1 is reported running, row 2 never, row 3 refused
        double minSeconds, maxSeconds;
    } cases[] = {
        {"report arrives", 12 * 3600, 0, "ORQ_HOST_START 1", 0, 10},
        {"no report", 12 * 3600, 0, "ORQ_HOST_START 2", 45, 47},
        {"no report across midnight", 86390, 0, "ORQ_HOST_START 2", 45, 47},
        {"flag set before the call", 12 * 3600, 1, "ORQ_HOST_START 2", 45, 47},
        {"refused, silently", 12 * 3600, 0, "ORQ_HOST_START 3", 45, 47},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        clock.setTime(c.startTime);
        App.GlblRunStarted = c.staleFlag;
        const double seconds = fakeSeconds([&] { DDEExecute_RunMethod(box, c.command); });
        EXPECT_GE(seconds, c.minSeconds);
        EXPECT_LE(seconds, c.maxSeconds);
        EXPECT_EQ(App.GlblRunStarted, 0);
    }
    EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(HostConversationTest, RunMethodLooksAtThePendingErrorFirst) {
    FakeHost host(online);
    DDEExecute_RunMethod(box, "ORQ_HOST_START 1", 1);
    EXPECT_EQ(dialogs.shown,
              (std::vector<Shown>{{Shown::Box, BoxStyle::Critical,
                                   "Custom::Application-defined or object-defined error",
                                   "DDEExecute_RunMethod"}}));
    for (const auto& [pending, error] : {std::pair{-1, 5}, {256, 5}, {70000, 6}}) {
        const int code = pending;  // clang 14 can't capture a structured binding
        EXPECT_EQ(errorOf([&] { DDEExecute_RunMethod(box, "ORQ_HOST_START 1", code); }), error)
            << pending;
    }
    EXPECT_TRUE(host.received().empty());
}

}  // namespace
