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
    const std::pair<const char*, const char*> cases[] = {
        {"  12  34 \r\n", "12  34"}, {"\r\n", ""}, {"A|\"B\"\r\n", "A|\"B\""}, {"ABCD", "AB"}};
    for (auto [raw, text] : cases) {
        host->setRawValue(items::ShowOrq, raw);
        DDERequest(box, items::ShowOrq);
        EXPECT_EQ(box.text(), text) << raw;
    }
    EXPECT_TRUE(dialogs.shown.empty());
    host->setRawValue(items::ShowOrq, "7");
    DDERequest(box, items::ShowOrq);
    EXPECT_EQ(dialogs.shown, plainBox("Invalid procedure call or argument", "DDERequest"));
}

TEST_F(HostConversationTest, OfflineFlagChoosesTheService) {
    // No service: refused before anything is sent.
    const std::pair<const char*, const char*> cases[] = {
        {"1", "TestHostOff"}, {"1.0", "TestHostOff"}, {" 1", "TestHostOff"},
        {"0", "TestHost"},    {"2", "TestHost"},      {"", ""}};
    for (auto [flag, service] : cases) {
        SCOPED_TRACE(flag);
        dialogs.shown.clear();
        const qsizetype sent = host->frames().size();
        App.GlblOffline = flag;
        DDERequest(box, items::ShowOrq);
        if (*service) {
            EXPECT_EQ(host->frames().last().section(' ', 1, 1), service);
            EXPECT_TRUE(dialogs.shown.empty());
        } else {
            EXPECT_EQ(dialogs.shown, plainBox("Type mismatch", "DDERequest"));
            EXPECT_EQ(host->frames().size(), sent);
        }
    }
}

TEST_F(HostConversationTest, WithoutHostTheRunsCallerGetsTheErrorAndNoChannelIsOpen) {
    host->kill();
    // The run's wait has no handler of its own before the send: its caller gets the error.
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
    OpenDDELinks();
    dialogs.shown.clear();  // its start-up box is the item feed's concern
    // Stands in for the run engine's status handler.
    QObject::connect(cpLinks().ddeRunEngineStatus, &QLineEdit::textChanged, [](const QString& t) {
        if (t.startsWith("RUNNING")) App.GlblRunStarted = 1;
    });
    clock.stepPerWait = 1.0;
    // Start time, flag before the call, whether the host reports, command, seconds waited.
    using Case = std::tuple<const char*, double, std::int16_t, bool, const char*, double, double>;
    const Case cases[] = {
        {"report arrives", 12 * 3600, 0, true, "ORQ_HOST_START 1", 0, 20},
        {"no report", 12 * 3600, 0, false, "ORQ_HOST_START 2", 45, 47},
        {"no report across midnight", 86390, 0, false, "ORQ_HOST_START 3", 45, 47},
        {"flag set before the call", 12 * 3600, 1, false, "ORQ_HOST_START 4", 45, 47},
        {"refused, silently", 12 * 3600, 0, true, "ORQ_HOST_START x", 45, 47},
    };
    for (const auto& [what, startTime, staleFlag, hostReports, command, least, most] : cases) {
        SCOPED_TRACE(what);
        host->simulator().finishRunNow();
        host->simulator().config().faults.noRunning = !hostReports;
        clock.setTime(startTime);
        App.GlblRunStarted = staleFlag;
        const QDateTime start = clock.moment;
        DDEExecute_RunMethod(box, command);
        const double seconds = start.msecsTo(clock.moment) / 1000.0;
        EXPECT_GE(seconds, least);
        EXPECT_LE(seconds, most);
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
