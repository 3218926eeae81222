#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QVariantMap>

#include "DesktopNotice.h"

namespace sidekin {

namespace {

std::function<bool(const QString&, const QString&)>& sink() {
    static std::function<bool(const QString&, const QString&)> installed;
    return installed;
}

const QString Service = QStringLiteral("org.freedesktop.Notifications");

}  // namespace

void setDesktopNoticeSink(std::function<bool(const QString&, const QString&)> installed) {
    sink() = std::move(installed);
}

bool showDesktopNotice(const QString& summary, const QString& body) {
    if (sink()) return sink()(summary, body);
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected() || !bus.interface() ||
        !bus.interface()->isServiceRegistered(Service).value())
        return false;
    QDBusMessage notify =
        QDBusMessage::createMethodCall(Service, QStringLiteral("/org/freedesktop/Notifications"),
                                       Service, QStringLiteral("Notify"));
    notify << QStringLiteral("Sidekin") << 0u << QString() << summary << body << QStringList()
           << QVariantMap() << -1;
    return bus.send(notify);
}

}  // namespace sidekin
