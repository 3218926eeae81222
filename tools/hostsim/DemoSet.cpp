#include "DemoSet.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include "platform/ProfileFile.h"

namespace sidekin::hostsim {

namespace {

const QString BundleRoot = QStringLiteral(":/hostsim/demo");

QString folder(const QString& root, const char* name) {
    return QDir(root).absoluteFilePath(QLatin1String(name)) + u'/';
}

// Profile files of the set name their folders under the root by @DEMO_ROOT@.
bool copyOut(const QString& from, const QString& to, const QString& root, QString* error) {
    QFile in(from);
    QFile out(to);
    if (!in.open(QIODevice::ReadOnly)) {
        *error = QStringLiteral("cannot read %1").arg(from);
        return false;
    }
    QByteArray bytes = in.readAll();
    if (to.endsWith(QLatin1String(".INI"), Qt::CaseInsensitive))
        bytes.replace("@DEMO_ROOT@", QDir(root).absolutePath().toUtf8() + '/');
    if (!out.open(QIODevice::WriteOnly | QIODevice::Truncate) || out.write(bytes) < 0 ||
        !out.flush()) {
        *error = QStringLiteral("cannot write %1: %2").arg(to, out.errorString());
        return false;
    }
    return true;
}

}  // namespace

QString defaultDemoRoot() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/zentrovar-hostsim");
}

Folders demoFolders(const QString& root) {
    return {folder(root, "instrument"), folder(root, "methods"), folder(root, "data")};
}

bool installDemoSet(const QString& root, bool reset, QString* error) {
    const QDir target(root);
    QDirIterator it(BundleRoot, QDir::Files, QDirIterator::Subdirectories);
    bool any = false;
    while (it.hasNext()) {
        const QString source = it.next();
        const QString relative = source.mid(BundleRoot.size() + 1);
        const QString destination = target.absoluteFilePath(relative);
        any = true;
        if (!reset && QFileInfo::exists(destination)) continue;
        if (!QDir().mkpath(QFileInfo(destination).absolutePath())) {
            *error = QStringLiteral("cannot create the folder of %1").arg(destination);
            return false;
        }
        if (!copyOut(source, destination, root, error)) return false;
    }
    if (!any) {
        *error = QStringLiteral("the demo set is not bundled with this program");
        return false;
    }
    if (!QDir().mkpath(demoFolders(root).data)) {
        *error = QStringLiteral("cannot create %1").arg(demoFolders(root).data);
        return false;
    }
    return true;
}

QStringList servicesFromIni(const QString& file) {
    const QString path = QFileInfo(file).absoluteFilePath();
    QStringList services;
    for (int n = 1; n <= 4; ++n) {
        for (const char* key : {"_DDEOnLine", "_DDEOffLine"}) {
            QString buffer;
            const int count = GetPrivateProfileStringA(
                QStringLiteral("PCS,%1").arg(n), QLatin1String(key), QString(), buffer, 256, path);
            const QString name = buffer.left(count).trimmed();
            if (!name.isEmpty() && !services.contains(name)) services << name;
        }
    }
    return services;
}

bool writeServicesIni(const QString& file, int instrument, const QString& online,
                      const QString& offline, QString* error) {
    const QString path = QFileInfo(file).absoluteFilePath();
    QDir().mkpath(QFileInfo(path).absolutePath());
    const QString section = QStringLiteral("PCS,%1").arg(instrument);
    if (WritePrivateProfileStringA(section, QStringLiteral("_DDEOnLine"), online, path) &&
        WritePrivateProfileStringA(section, QStringLiteral("_DDEOffLine"), offline, path))
        return true;
    *error = QStringLiteral("cannot write %1").arg(path);
    return false;
}

}  // namespace sidekin::hostsim
