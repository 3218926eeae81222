#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>
#include <QTemporaryDir>
#include <cstdlib>
#include <optional>

#include "ProfileFile.h"

// The profile calls work on files: each input becomes the one file of a folder
// that lives as long as the fuzzing process. In memory when there is a tmpfs:
// on a disk, rewriting the file and the writer's fsync make every run wait.
inline QString profileWith(const QByteArray& bytes) {
    static QTemporaryDir dir(QFileInfo(QStringLiteral("/dev/shm")).isWritable()
                                 ? QStringLiteral("/dev/shm/sidekin-fuzz-XXXXXX")
                                 : QDir::tempPath() + QStringLiteral("/sidekin-fuzz-XXXXXX"));
    const QString path = dir.filePath(QStringLiteral("fuzz.ini"));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(bytes) != bytes.size())
        std::abort();
    return path;
}

inline QByteArray contentsOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) std::abort();
    return file.readAll();
}

// The value of a key as a buffer of this size holds it, or nothing when the key is missing.
inline std::optional<QString> readValue(const QString& section, const QString& key,
                                        const QString& path, int size = 1 << 20) {
    QString a, b;
    const int count =
        sidekin::GetPrivateProfileStringA(section, key, QStringLiteral("a"), a, size, path);
    if (count != a.size() || count > qMax(size - 1, 0)) std::abort();
    sidekin::GetPrivateProfileStringA(section, key, QStringLiteral("b"), b, size, path);
    if (a != b) return std::nullopt;
    return a;
}

// Each key read parses the whole file again: a few are enough to check, and
// keep inputs with hundreds of keys from slowing the fuzzer to a crawl.
constexpr int kKeysChecked = 24;
