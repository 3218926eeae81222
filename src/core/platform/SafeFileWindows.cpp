// The same promise on Windows: a copy beside the file, flushed, moved over the
// file with write-through (the profile writes of ProfileFileWindows.cpp do the
// same around the platform's own profile calls).
#include <windows.h>

#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>

#include "platform/SafeFile.h"

namespace sidekin {

namespace {

std::wstring wide(const QString& text) { return QDir::toNativeSeparators(text).toStdWString(); }

void removeStrayTemporaries(const QString& path) {
    const QFileInfo info(path);
    const QString prefix = u'.' + info.fileName() + QStringLiteral(".tmp-");
    for (const QString& name :
         QDir(info.absolutePath()).entryList({prefix + u'*'}, QDir::Files | QDir::Hidden))
        ::DeleteFileW(wide(info.absolutePath() + u'/' + name).c_str());
}

}  // namespace

bool replaceFileSafely(const QString& path, const QByteArray& bytes, std::optional<unsigned>) {
    removeStrayTemporaries(path);
    const QFileInfo info(path);
    const QString temporary =
        info.absolutePath() + QStringLiteral("/.") + info.fileName() + QStringLiteral(".tmp-") +
        QString::number(QRandomGenerator::global()->generate(), 16).rightJustified(8, u'0');
    const std::wstring from = wide(temporary), to = wide(path);
    const HANDLE handle = ::CreateFileW(from.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                        FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) return false;
    DWORD written = 0;
    bool ok = ::WriteFile(handle, bytes.constData(), static_cast<DWORD>(bytes.size()), &written,
                          nullptr) &&
              written == static_cast<DWORD>(bytes.size()) && ::FlushFileBuffers(handle);
    ::CloseHandle(handle);
    ok = ok && ::MoveFileExW(from.c_str(), to.c_str(),
                             MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
    if (!ok) ::DeleteFileW(from.c_str());
    return ok;
}

}  // namespace sidekin
