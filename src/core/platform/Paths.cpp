#include "Paths.h"

namespace sidekin {

QString nativePath(const QString& path) {
#ifdef Q_OS_WIN
    return path;
#else
    return QString(path).replace(u'\\', u'/');
#endif
}

}  // namespace sidekin
