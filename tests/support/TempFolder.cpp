#include "TempFolder.h"

#include <QFile>

namespace sidekin::test {

QString TempFolder::write(const QString& name, const QByteArray& bytes) const {
    const QString path = file(name);
    QFile f(path);
    if (f.open(QIODevice::WriteOnly)) f.write(bytes);
    return path;
}

QByteArray TempFolder::read(const QString& name) const {
    QFile f(file(name));
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

}  // namespace sidekin::test
