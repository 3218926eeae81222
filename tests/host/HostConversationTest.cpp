// The four host operations and the item feed against the in-process host.
#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <QLineEdit>
#include <QTimer>
#include <memory>
#include <utility>

#include "AppState.h"
#include "CPLinks.h"
#include "ErrorOf.h"
#include "FormsFixture.h"
#include "HostConversation.h"
#include "HostItems.h"
#include "HostLink.h"
#include "InProcessHost.h"
#include "ItemFeed.h"
#include "LinkTextBox.h"
#include "MainWindowEvents.h"
#include "ShowHideOrq.h"
#include "StartupFetch.h"
#include "WaitUntil.h"
#include "platform/ErrorHandler.h"

using namespace sidekin;
using namespace sidekin::test;

namespace {

// A fresh program, forms unwired but for CPLinks, with an in-process host serving instrument 1
// online and offline; online is selected.
class HostConversationTest : public StartupFixture {
protected:
    void SetUp() override {
        StartupFixture::SetUp();
        FormsFixture::unloadForms();
        installLinkFormWiring();
        host = std::make_unique<InProcessHost>(InProcessHost::defaultConfig(),
                                               QStringList{online, offline});
        qputenv("ZENTROVAR_CONFIG_DIR", host->configFolder().toUtf8());
        App.GlblInstrument = 1;
        App.GlblOffline = QStringLiteral("0");
        App.GlblDDEApp = online;
    }
    void TearDown() override {
        FormsFixture::unloadForms();
        host.reset();
        StartupFixture::TearDown();
    }

    static std::vector<Shown> plainBox(const QString& text, const QString& title) {
        return {{Shown::Box, BoxStyle::Plain, text, title}};
    }

    const QString online = QStringLiteral("TestHost");
    const QString offline = QStringLiteral("TestHostOff");
    std::unique_ptr<InProcessHost> host;
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

    // The host's word on showing the window: one conversation, asked once, then advised.
    iNITddesHOWorq();
    EXPECT_EQ(host->frames().mid(4), QStringList({"5 TestHost Request CPNOWAIT ShowORQ$",
                                                  "5 TestHost Advise CPNOWAIT ShowORQ$"}));
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
    // The boxes of the other link failures read as the legacy platform's did.
    const std::pair<int, const char*> texts[] = {
        {link::ErrNoHost, "No foreign application responded to a DDE initiate"},
        {link::ErrRefused, "Foreign application won't perform DDE method or operation"},
        {link::ErrTimeout, "Timeout while waiting for DDE response"},
        {link::ErrBadData, "Data in wrong format"},
        {link::ErrHostQuit, "Foreign application quit"}};
    for (auto [error, description] : texts) EXPECT_EQ(errorDescription(error), description);
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
    // Start time, flag before the call, whether the host reports, command, seconds waited, the
    // error left pending (only 1 is reported instead).
    using Case =
        std::tuple<const char*, double, std::int16_t, bool, const char*, double, double, int>;
    const Case cases[] = {
        {"report arrives", 12 * 3600, 0, true, "ORQ_HOST_START 1", 0, 20, 255},
        {"no report", 12 * 3600, 0, false, "ORQ_HOST_START 2", 45, 47, 0},
        {"no report across midnight", 86390, 0, false, "ORQ_HOST_START 3", 45, 47, 0},
        {"flag set before the call", 12 * 3600, 1, false, "ORQ_HOST_START 4", 45, 47, 0},
        {"refused, silently", 12 * 3600, 0, true, "ORQ_HOST_START x", 45, 47, 0},
    };
    for (const auto& [what, startTime, staleFlag, hostReports, command, least, most, pending] :
         cases) {
        SCOPED_TRACE(what);
        host->simulator().finishRunNow();
        host->simulator().config().faults.noRunning = !hostReports;
        clock.setTime(startTime);
        App.GlblRunStarted = staleFlag;
        const QDateTime start = clock.moment;
        DDEExecute_RunMethod(box, command, pending);
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

// Counts the notices that reach a form; may post an event of its
// own at each, as a repaint or a socket read does.
class NoticeWatch : public QObject {
public:
    explicit NoticeWatch(bool postOwnEvent = false, qint64 holdMs = 0)
        : post(postOwnEvent), hold(holdMs) {}
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != itemfeed::NoticeEvent::type()) return false;
        ++count;
        if (post) QCoreApplication::postEvent(this, new QEvent(QEvent::User));
        return false;
    }
    bool event(QEvent* event) override {
        if (event->type() == QEvent::User && hold > 0) {  // served inside the notice's yield
            QEventLoop held;
            QTimer::singleShot(std::exchange(hold, 0), &held, &QEventLoop::quit);
            held.exec();
        }
        return QObject::event(event);
    }
    int count = 0;
    bool post;
    qint64 hold;
};

QString boxText(const QString& value) {
    return (value + "\r\n").leftJustified(itemfeed::MaxValueChars, u' ', true);
}

class ItemFeedTest : public HostConversationTest {
protected:
    // Pushes a new value: its box shows it once the program serves its events, not before.
    void pushAndWait(const QString& item, const QString& value, QLineEdit* edit) {
        host->simulator().publish(item, value);
        EXPECT_NE(edit->text(), boxText(value));
        EXPECT_TRUE(waitUntil([&] { return edit->text() == boxText(value); }))
            << item.toStdString();
    }
};

// Other events served inside a notice's yield lose none of the notices.
TEST_F(ItemFeedTest, StartupDeliversPathsBeforeStatusItems) {
    const std::pair<QString, QString> held[] = {{items::DataPath, "C:\\HOST\\DATA\\"},
                                                {items::InstPath, "/opt/host/1/inst.cfg"},
                                                {items::MethPath, "C:\\HOST\\METHODS\\DEF.M"},
                                                {items::SystemStatus, "Ready|Idle"},
                                                {items::StatusTime, "Idle|00:00"},
                                                {items::RunEngine, "Idle"}};
    for (const auto& [item, value] : held) host->simulator().publish(item, value);
    QStringList changes;  // CPLinks loaded first, so every box change is seen from the first
    CPLinks& f = cpLinks();
    for (QLineEdit* edit : {f.txtDataPath, f.txtInstPath, f.txtMethPath, f.ddeSystemStatus,
                            f.ddeStatusTime, f.ddeRunEngineStatus})
        QObject::connect(edit, &QLineEdit::textChanged,
                         [&, edit] { changes << edit->objectName(); });
    NoticeWatch otherEvents(true);
    f.installEventFilter(&otherEvents);
    OpenDDELinks();
    EXPECT_EQ(dialogs.shown, plainBox("DDE Initialization NOT Successful !", "VB DDE Error"))
        << "shown even when all went well";
    QStringList advised;
    for (const QString& item : QStringList(App.DDEItems.begin(), App.DDEItems.begin() + 6))
        advised << "1 TestHost Advise CPNOWAIT " + item;
    EXPECT_EQ(host->frames(), advised);
    waitUntil([&] { return changes.size() >= 6; });
    EXPECT_EQ(changes, QStringList({"txtDataPath", "txtInstPath", "txtMethPath", "ddeSystemStatus",
                                    "ddeStatusTime", "ddeRunEngineStatus"}));
    EXPECT_EQ(App.GlblDataDir, "C:\\HOST\\DATA\\");
    EXPECT_EQ(App.GlblInstDir, "/opt/host/1/");
    EXPECT_EQ(App.GlblIniFile, "/opt/host/1/ORQ.INI");
    EXPECT_EQ(App.GlblMethodDir, "C:\\HOST\\METHODS\\");
    EXPECT_EQ(f.ddeSystemStatus->text(), boxText("Ready|Idle"));
}

TEST_F(ItemFeedTest, InstrumentPathGivesFolderAndIniFile) {
    OpenDDELinks();
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"C:\\HOST\\1\\inst.cfg", "C:\\HOST\\1\\", "C:\\HOST\\1\\ORQ.INI"},
        {"/opt/host/1/", "/opt/host/1/", "/opt/host/1/ORQ.INI"},  // folder as it stands
        {"  /opt/h/inst.cfg", "  /opt/h/", "/opt/h/ORQ.INI"},
        {"inst.cfg", "", "ORQ.INI"},
    };
    for (auto [value, folder, iniFile] : cases) {
        pushAndWait(items::InstPath, value, cpLinks().txtInstPath);
        EXPECT_EQ(App.GlblInstDir, folder);
        EXPECT_EQ(App.GlblIniFile, iniFile);
    }
    pushAndWait(items::DataPath, "  /data/x.d", cpLinks().txtDataPath);
    EXPECT_EQ(App.GlblDataDir, "/data/");
}

TEST_F(ItemFeedTest, StatusValuesFillExactlyEightyCharactersAndRepeatsRaiseNothing) {
    OpenDDELinks();
    QLineEdit* status = cpLinks().ddeSystemStatus;
    ASSERT_TRUE(waitUntil([&] { return !status->text().isEmpty(); }));  // the value at advise
    NoticeWatch notices;
    cpLinks().installEventFilter(&notices);
    int changed = 0;
    QObject::connect(status, &QLineEdit::textChanged, [&] { ++changed; });

    pushAndWait(items::SystemStatus, "Ready|Idle", status);
    EXPECT_EQ(status->text().size(), 80);
    host->simulator().publish(items::SystemStatus, QString(100, u'x'));
    EXPECT_TRUE(waitUntil([&] { return status->text() == QString(80, u'x'); }));
    EXPECT_EQ(changed, 2);

    // Equal once cut: a notice comes, but the box does not change.
    for (const QString& same : {QString(90, u'x'), QString(95, u'x')}) {
        const int before = notices.count;
        host->simulator().publish(items::SystemStatus, same);
        EXPECT_TRUE(waitUntil([&] { return notices.count > before; }));
        EXPECT_EQ(changed, 2);
    }

    {  // Other work in a notice's yield outlasts the resend time: the notice is read once.
        NoticeWatch holding(true, 2 * itemfeed::NoticeResend.count());
        cpLinks().installEventFilter(&holding);
        const int before = notices.count;
        pushAndWait(items::SystemStatus, "held", status);
        EXPECT_EQ(notices.count, before + 1);
    }

    // A burst of changes, an empty value among them: every value comes, in order.
    QStringList seen, sent;
    QObject::connect(status, &QLineEdit::textChanged, [&](const QString& t) { seen << t; });
    // Wine serves events several times slower: on a busy machine 10,000 took over a minute.
#ifdef _WIN32
    constexpr int burst = 2000;
#else
    constexpr int burst = 10000;
#endif
    for (int i = 0; i < burst; ++i) {
        sent << (i == burst / 2 ? QString() : QString::number(i));
        host->simulator().publish(items::SystemStatus, sent.back());
    }
    ASSERT_TRUE(waitUntil([&] { return seen.size() >= sent.size(); }, 60000)) << seen.size();
    for (int i = 0; i < sent.size(); ++i) ASSERT_EQ(seen[i], boxText(sent[i])) << i;
}

TEST_F(ItemFeedTest, KeyCodeOutsideTheTableIsSubscriptOutOfRange) {
    FillArray();
    for (auto [key, box] : {std::pair{0, false}, {5, false}, {10, false}, {11, true}, {-1, true}}) {
        dialogs.shown.clear();
        Form_KeyPress(key);
        EXPECT_EQ(dialogs.shown,
                  box ? plainBox("Subscript out of range", "Form_KeyPress") : std::vector<Shown>{})
            << key;
    }
}

}  // namespace
