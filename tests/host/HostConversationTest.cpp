// The four host operations against the in-process host.
#include <QLineEdit>
#include <QTimer>

#include "HostConversation.h"
#include "HostItems.h"
#include "HostLink.h"
#include "HostLinkFixture.h"
#include "LinkTextBox.h"
#include "StartupFetch.h"
#include "platform/ErrorHandler.h"

using namespace sidekin;
using namespace sidekin::test;

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
    clock.stepPerWait = 1.0;
    DDEexecute(box, "ddeORQ = 2");
    EXPECT_EQ(box.LinkTimeout, 600);  // tenths of a second
    DDERequest(box, "ddeORQ");
    EXPECT_EQ(box.LinkTimeout, 600);
    QTimer::singleShot(0, &scope, [] { App.GlblMethodLoaded = 1; });  // served inside the wait
    DDEExecut_LoadMethod(box, "ORQ_LoadMethod DEF");
    DDEExecute_RunMethod(box, "ORQ_HOST_START 1");
    EXPECT_EQ(box.LinkTimeout, 6000);

    EXPECT_EQ(host->frames(), QStringList({"1 TestHost Execute CPWAIT ddeORQ = 2",
                                           "2 TestHost Request CPWAIT ddeORQ",
                                           "3 TestHost Execute CPNOWAIT ORQ_LoadMethod DEF",
                                           "4 TestHost Execute CPNOWAIT ORQ_HOST_START 1"}));
    EXPECT_EQ(box.text(), "2");  // the executes leave Text and LinkItem alone
    EXPECT_EQ(box.LinkItem, "ddeORQ");
    EXPECT_EQ(App.GlblMethodLoaded, 0);
    EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(HostConversationTest, RequestDropsTheLastTwoCharactersAndOuterBlanks) {
    const struct {
        const char* raw;
        const char* text;
    } cases[] = {
        {"  12  34 \r\n", "12  34"}, {"\r\n", ""}, {"A|\"B\"\r\n", "A|\"B\""}, {"ABCD", "AB"}};
    for (const auto& c : cases) {
        host->setRawValue(items::ShowOrq, c.raw);
        DDERequest(box, items::ShowOrq);
        EXPECT_EQ(box.text(), c.text) << c.raw;
    }
    EXPECT_TRUE(dialogs.shown.empty());
    host->setRawValue(items::ShowOrq, "7");
    DDERequest(box, items::ShowOrq);
    EXPECT_EQ(dialogs.shown, plainBox("Invalid procedure call or argument", "DDERequest"));
}

TEST_F(HostConversationTest, OfflineFlagChoosesTheService) {
    const struct {
        const char* flag;
        const char* service;  // empty: refused before anything is sent
    } cases[] = {{"1", "TestHostOff"}, {"1.0", "TestHostOff"}, {" 1", "TestHostOff"},
                 {"0", "TestHost"},    {"2", "TestHost"},      {"", ""}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.flag);
        dialogs.shown.clear();
        const qsizetype sent = host->frames().size();
        App.GlblOffline = c.flag;
        DDERequest(box, items::ShowOrq);
        if (*c.service) {
            EXPECT_EQ(host->frames().last().section(' ', 1, 1), c.service);
            EXPECT_TRUE(dialogs.shown.empty());
        } else {
            EXPECT_EQ(dialogs.shown, plainBox("Type mismatch", "DDERequest"));
            EXPECT_EQ(host->frames().size(), sent);
        }
    }
}

TEST_F(HostConversationTest, LinkFailuresEndInTheOperationsBoxAndTheNextCallWorks) {
    const QString refused = "Foreign application won't perform DDE method or operation";
    const struct {
        const char* what;
        std::function<void()> fault;
        std::function<void(LinkTextBox&)> call;
        QString words;
        const char* title;
    } cases[] = {
        {"unknown item", [] {}, [](LinkTextBox& b) { DDERequest(b, "NoSuchItem$"); }, refused,
         "DDERequest"},
        {"host closes", [this] { host->simulator().armCloseAfter(1); },
         [](LinkTextBox& b) { DDERequest(b, "ddeORQ"); }, "Foreign application quit", "DDERequest"},
        {"malformed answer", [this] { host->simulator().armGarbageAfter(1); },
         [](LinkTextBox& b) { DDERequest(b, "ddeORQ"); }, "Data in wrong format", "DDERequest"},
        {"command not understood", [] {}, [](LinkTextBox& b) { DDEexecute(b, "Nonsense here"); },
         refused, "DDEexecute"},
        {"host closes on execute", [this] { host->simulator().armCloseAfter(1); },
         [](LinkTextBox& b) { DDEexecute(b, "ddeORQ = 5"); }, "Foreign application quit",
         "DDEexecute"},
        {"load refused before the wait", [] {},
         [](LinkTextBox& b) { DDEExecut_LoadMethod(b, "ORQ_LoadMethod"); }, refused,
         "DDEExecut_LoadMethod"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        dialogs.shown.clear();
        c.fault();
        c.call(box);
        EXPECT_EQ(dialogs.shown, plainBox(c.words, c.title));
        DDEexecute(box, "ddeORQ = 5");
        DDERequest(box, "ddeORQ");
        EXPECT_EQ(box.text(), "5");
        EXPECT_EQ(dialogs.shown.size(), 1u);
    }
}

TEST_F(HostConversationTest, WithoutHostTheOperationsReportError282) {
    host->kill();
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
    handled("caller", [&] { box.LinkRequest(); });
    EXPECT_EQ(dialogs.shown, plainBox("DDE method invoked with no channel open", "caller"));
}

TEST_F(HostConversationTest, LoadMethodWaitsWithoutLimitServingEvents) {
    host->simulator().config().faults.noLoaded = true;
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
    openFeedWithStatusHandler();
    clock.stepPerWait = 1.0;
    const struct {
        const char* what;
        double startTime;
        std::int16_t staleFlag;
        bool hostReports;
        const char* command;
        double minSeconds, maxSeconds;
    } cases[] = {
        {"report arrives", 12 * 3600, 0, true, "ORQ_HOST_START 1", 0, 20},
        {"no report", 12 * 3600, 0, false, "ORQ_HOST_START 2", 45, 47},
        {"no report across midnight", 86390, 0, false, "ORQ_HOST_START 3", 45, 47},
        {"flag set before the call", 12 * 3600, 1, false, "ORQ_HOST_START 4", 45, 47},
        {"refused, silently", 12 * 3600, 0, true, "ORQ_HOST_START x", 45, 47},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        host->simulator().finishRunNow();
        host->simulator().config().faults.noRunning = !c.hostReports;
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
    EXPECT_TRUE(host->frames().isEmpty());
}

}  // namespace
