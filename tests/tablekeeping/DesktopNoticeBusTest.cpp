// The notice over a real session bus, to a stand-in notification service. Runs
// only where a session bus is there (for example under dbus-run-session);
// skipped otherwise, as under ctest.
#include <gtest/gtest.h>

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QObject>
#include <QVariantMap>

#include "DesktopNotice.h"
#include "WaitUntil.h"

namespace {

class StandInNotifications : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")
public:
    QStringList received;
public slots:
    uint Notify(const QString& app, uint, const QString&, const QString& summary,
                const QString& body, const QStringList&, const QVariantMap&, int) {
        received << app + " | " + summary + " | " + body;
        return 1;
    }
};

TEST(DesktopNoticeBusTest, TheNoticeReachesTheNotificationService) {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) GTEST_SKIP() << "no session bus";
    if (bus.interface()->isServiceRegistered("org.freedesktop.Notifications"))
        GTEST_SKIP() << "a real notification service runs";
    StandInNotifications service;
    ASSERT_TRUE(bus.registerObject("/org/freedesktop/Notifications", &service,
                                   QDBusConnection::ExportAllSlots));
    ASSERT_TRUE(bus.registerService("org.freedesktop.Notifications"));
    EXPECT_TRUE(sidekin::showDesktopNotice("Sidekin, instrument 1", "Run 2 was aborted."));
    EXPECT_TRUE(sidekin::test::waitUntil([&] { return !service.received.isEmpty(); }, 5000));
    EXPECT_EQ(service.received,
              QStringList{"Sidekin | Sidekin, instrument 1 | Run 2 was aborted."});
    bus.unregisterService("org.freedesktop.Notifications");
    bus.unregisterObject("/org/freedesktop/Notifications");
    EXPECT_FALSE(sidekin::showDesktopNotice("Sidekin", "nobody listens now"));
}

}  // namespace

#include "DesktopNoticeBusTest.moc"
