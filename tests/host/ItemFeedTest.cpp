#include <QEvent>
#include <QLineEdit>

#include "HostCommands.h"
#include "HostItems.h"
#include "HostLinkFixture.h"
#include "LinkTextBox.h"
#include "ShowHideOrq.h"
#include "StartupFetch.h"

using namespace sidekin;
using namespace sidekin::test;
namespace cmd = sidekin::commands;

namespace {

// Counts the notices (key events) that reach a form; may post an event of its
// own at each, as a repaint or a socket read does.
class NoticeWatch : public QObject {
public:
    explicit NoticeWatch(bool postOwnEvent = false) : post(postOwnEvent) {}
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::KeyPress) return false;
        ++count;
        if (post) QCoreApplication::postEvent(this, new QEvent(QEvent::User));
        return false;
    }
    int count = 0;
    bool post;
};

QString boxText(const QString& value) {
    return (value + "\r\n").leftJustified(itemfeed::MaxValueChars, u' ', true);
}

class ItemFeedTest : public HostLinkFixture {
protected:
    QList<QLineEdit*> itemBoxes() {
        CPLinks& f = cpLinks();
        return {f.txtDataPath,     f.txtInstPath,   f.txtMethPath,
                f.ddeSystemStatus, f.ddeStatusTime, f.ddeRunEngineStatus};
    }

    // Loads CPLinks first, so that every box change is seen from the first delivery.
    void recordBoxChanges() {
        for (QLineEdit* edit : itemBoxes())
            QObject::connect(edit, &QLineEdit::textChanged,
                             [this, edit] { changes << edit->objectName(); });
    }

    // Pushes a new value: its box shows it once the program serves its events, not before.
    void pushAndWait(const QString& item, const QString& value, QLineEdit* edit) {
        host->simulator().publish(item, value);
        EXPECT_NE(edit->text(), boxText(value));
        EXPECT_TRUE(serveUntil([&] { return edit->text() == boxText(value); }))
            << item.toStdString();
    }

    void holdSixItems() {
        host->simulator().publish(items::DataPath, "C:\\HOST\\DATA\\");
        host->simulator().publish(items::InstPath, "/opt/host/1/inst.cfg");
        host->simulator().publish(items::MethPath, "C:\\HOST\\METHODS\\DEF.M");
        host->simulator().publish(items::SystemStatus, "Ready|Idle");
        host->simulator().publish(items::StatusTime, "Idle|00:00");
        host->simulator().publish(items::RunEngine, "Idle");
    }

    const std::vector<Shown> startupBox =
        plainBox("DDE Initialization NOT Successful !", "VB DDE Error");
    QStringList changes;
};

TEST_F(ItemFeedTest, StartupDeliversPathsBeforeStatusItems) {
    holdSixItems();
    recordBoxChanges();
    OpenDDELinks();
    EXPECT_EQ(dialogs.shown, startupBox);  // shown even when all went well
    QStringList advised;
    for (const QString& item : QStringList(App.DDEItems.begin(), App.DDEItems.begin() + 6))
        advised << "1 TestHost Advise CPNOWAIT " + item;
    EXPECT_EQ(host->frames(), advised);
    serveUntil([&] { return changes.size() >= 6; }, 3000);
    EXPECT_EQ(changes, QStringList({"txtDataPath", "txtInstPath", "txtMethPath", "ddeSystemStatus",
                                    "ddeStatusTime", "ddeRunEngineStatus"}));
    EXPECT_EQ(App.GlblDataDir, "C:\\HOST\\DATA\\");
    EXPECT_EQ(App.GlblInstDir, "/opt/host/1/");
    EXPECT_EQ(App.GlblIniFile, "/opt/host/1/ORQ.INI");
    EXPECT_EQ(App.GlblMethodDir, "C:\\HOST\\METHODS\\");
    EXPECT_EQ(cpLinks().ddeSystemStatus->text(), boxText("Ready|Idle"));
}

TEST_F(ItemFeedTest, NoticeIsNotLostWhenAnotherIsServedInsideItsYield) {
    holdSixItems();
    recordBoxChanges();
    NoticeWatch otherEvents(true);
    cpLinks().installEventFilter(&otherEvents);
    OpenDDELinks();
    serveUntil([&] { return changes.size() >= 6; }, 2000);
    EXPECT_EQ(changes.size(), 6);
    EXPECT_EQ(App.GlblIniFile, "/opt/host/1/ORQ.INI");
}

TEST_F(ItemFeedTest, InstrumentPathGivesFolderAndIniFile) {
    OpenDDELinks();
    const struct {
        const char* value;
        const char* folder;   // as it stands
        const char* iniFile;  // trimmed
    } cases[] = {
        {"C:\\HOST\\1\\", "C:\\HOST\\1\\", "C:\\HOST\\1\\ORQ.INI"},
        {"C:\\HOST\\1\\inst.cfg", "C:\\HOST\\1\\", "C:\\HOST\\1\\ORQ.INI"},
        {"/opt/host/1/", "/opt/host/1/", "/opt/host/1/ORQ.INI"},
        {"/opt/host/1/inst.cfg", "/opt/host/1/", "/opt/host/1/ORQ.INI"},
        {"  /opt/h/inst.cfg", "  /opt/h/", "/opt/h/ORQ.INI"},
        {"inst.cfg", "", "ORQ.INI"},
    };
    for (const auto& c : cases) {
        pushAndWait(items::InstPath, c.value, cpLinks().txtInstPath);
        EXPECT_EQ(App.GlblInstDir, c.folder);
        EXPECT_EQ(App.GlblIniFile, c.iniFile);
    }
    pushAndWait(items::DataPath, "  /data/x.d", cpLinks().txtDataPath);
    EXPECT_EQ(App.GlblDataDir, "/data/");
}

TEST_F(ItemFeedTest, StatusValuesFillExactlyEightyCharactersAndRepeatsRaiseNothing) {
    OpenDDELinks();
    QLineEdit* status = cpLinks().ddeSystemStatus;
    ASSERT_TRUE(serveUntil([&] { return !status->text().isEmpty(); }));  // the value at advise
    NoticeWatch notices;
    cpLinks().installEventFilter(&notices);
    int changed = 0;
    QObject::connect(status, &QLineEdit::textChanged, [&] { ++changed; });

    pushAndWait(items::SystemStatus, "Ready|Idle", status);
    EXPECT_EQ(status->text().size(), 80);
    const QString longValue = QString(100, u'x');
    host->simulator().publish(items::SystemStatus, longValue);
    EXPECT_TRUE(serveUntil([&] { return status->text() == QString(80, u'x'); }));
    EXPECT_EQ(changed, 2);

    // Equal once cut: a notice comes, but the box does not change.
    for (const QString& same : {QString(90, u'x'), QString(95, u'x')}) {
        const int before = notices.count;
        host->simulator().publish(items::SystemStatus, same);
        EXPECT_TRUE(serveUntil([&] { return notices.count > before; }));
        EXPECT_EQ(changed, 2);
    }
}

TEST_F(ItemFeedTest, KeyCodeOutsideTheTableIsSubscriptOutOfRange) {
    FillArray();
    const struct {
        int key;
        bool box;
    } cases[] = {{0, false}, {5, false}, {10, false}, {11, true}, {-1, true}};
    for (const auto& c : cases) {
        dialogs.shown.clear();
        cpLinks().Form_KeyPress(c.key);
        EXPECT_EQ(dialogs.shown, c.box ? plainBox("Subscript out of range", "Form_KeyPress")
                                       : std::vector<Shown>{})
            << c.key;
    }
}

TEST_F(ItemFeedTest, HotLinkWithoutHostShowsItsBoxAndLeavesTheWindowAlone) {
    host->kill();
    iNITddesHOWorq();
    EXPECT_EQ(dialogs.shown,
              plainBox("No foreign application responded to a DDE initiate", "iNITddesHOWorq"));
    EXPECT_FALSE(frmORQ().isVisible());
}

}  // namespace
