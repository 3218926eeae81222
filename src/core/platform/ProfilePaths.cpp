#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <algorithm>

#include "platform/Paths.h"
#include "platform/ProfileFile.h"

namespace sidekin {

QString profileFolder() {
    if (!qEnvironmentVariableIsEmpty("ZENTROVAR_CONFIG_DIR"))
        return nativePath(qEnvironmentVariable("ZENTROVAR_CONFIG_DIR"));
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/zentrovar");
}

QString resolveProfilePath(const QString& file) {
    QString path = nativePath(file);
    if (path.isEmpty()) return {};
    if (!path.contains(u'/') && !path.contains(u'\\')) path = profileFolder() + u'/' + path;
#ifdef Q_OS_WIN
    return path;  // the file system there ignores case itself
#else
    if (QFileInfo::exists(path)) return path;

    // The legacy file system ignores case: a missing part may exist in another spelling.
    QString resolved = path.startsWith(u'/') ? QStringLiteral("/") : QString();
    for (const QString& part : path.split(u'/', Qt::SkipEmptyParts)) {
        const QString folder = resolved.isEmpty() ? QStringLiteral(".") : resolved;
        const QString joined = resolved.isEmpty() || resolved.endsWith(u'/')
                                   ? resolved + part
                                   : resolved + u'/' + part;
        if (QFileInfo::exists(joined)) {
            resolved = joined;
            continue;
        }
        const QStringList entries = QDir(folder).entryList(
            QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
        const auto match = std::find_if(entries.begin(), entries.end(), [&](const QString& e) {
            return e.compare(part, Qt::CaseInsensitive) == 0;
        });
        if (match == entries.end()) return path;
        resolved = joined.chopped(part.size()) + *match;
    }
    return resolved;
#endif
}

}  // namespace sidekin
