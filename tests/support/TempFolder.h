#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

namespace sidekin::test {

// A temporary folder with small helpers to write and read files in it.
class TempFolder {
public:
    QString path() const { return dir.path(); }
    QString file(const QString& name) const { return dir.filePath(name); }
    QString write(const QString& name, const QByteArray& bytes) const;
    QByteArray read(const QString& name) const;

private:
    QTemporaryDir dir;
};

}  // namespace sidekin::test
