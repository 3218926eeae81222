#include <QEvent>
#include <QLineEdit>

#include "HostItems.h"
#include "HostLinkFixture.h"
#include "StartupFetch.h"

using namespace sidekin;
using namespace sidekin::test;

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
}

TEST_F(ItemFeedTest, KeyCodeOutsideTheTableIsSubscriptOutOfRange) {
    FillArray();
    for (auto [key, box] : {std::pair{0, false}, {5, false}, {10, false}, {11, true}, {-1, true}}) {
        dialogs.shown.clear();
        cpLinks().Form_KeyPress(key);
        EXPECT_EQ(dialogs.shown,
                  box ? plainBox("Subscript out of range", "Form_KeyPress") : std::vector<Shown>{})
            << key;
    }
}

}  // namespace
