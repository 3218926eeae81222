// The profile calls of the Windows platform itself, so the legacy semantics are
// the platform's own; only the write is made crash-safe around them.
#include <windows.h>

#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>
#include <vector>

#include "platform/ProfileFile.h"

namespace sidekin {

namespace {

std::wstring wide(const QString& text) { return text.toStdWString(); }

// A double-NUL-terminated list of names, as the section and key calls answer.
QStringList nameList(const std::vector<wchar_t>& buffer, DWORD length) {
    QStringList names;
    for (DWORD at = 0; at < length && buffer[at] != 0;) {
        const QString name = QString::fromWCharArray(buffer.data() + at);
        if (!names.contains(name, Qt::CaseInsensitive)) names << name;
        at += static_cast<DWORD>(name.size()) + 1;
    }
    return names;
}

QStringList names(const wchar_t* section, const QString& file) {
    const std::wstring path = wide(resolveProfilePath(file));
    std::vector<wchar_t> buffer(4096);
    for (;;) {
        const DWORD n =
            section ? ::GetPrivateProfileStringW(section, nullptr, L"", buffer.data(),
                                                 static_cast<DWORD>(buffer.size()), path.c_str())
                    : ::GetPrivateProfileSectionNamesW(
                          buffer.data(), static_cast<DWORD>(buffer.size()), path.c_str());
        if (n < buffer.size() - 2) return nameList(buffer, n);
        buffer.resize(buffer.size() * 4);
    }
}

// Temporaries of writers that died are removed at the next write; one still
// open by a live writer cannot be deleted and stays.
void removeStrayTemporaries(const QString& path) {
    const QFileInfo info(path);
    const QString prefix = info.fileName() + QStringLiteral(".tmp-");
    for (const QString& name : QDir(info.absolutePath()).entryList({prefix + u'*'}, QDir::Files))
        ::DeleteFileW(wide(info.absolutePath() + u'/' + name).c_str());
}

}  // namespace

int GetPrivateProfileStringA(const QString& section, const QString& key,
                             const QString& defaultValue, QString& buffer, int size,
                             const QString& file) {
    std::vector<wchar_t> out(static_cast<size_t>(qMax(size, 1)));
    const DWORD n = ::GetPrivateProfileStringW(
        wide(section).c_str(), wide(key).c_str(), wide(defaultValue).c_str(), out.data(),
        static_cast<DWORD>(out.size()), wide(resolveProfilePath(file)).c_str());
    buffer = QString::fromWCharArray(out.data(), static_cast<qsizetype>(n));
    return static_cast<int>(n);
}

unsigned int GetPrivateProfileIntA(const QString& section, const QString& key, int defaultValue,
                                   const QString& file) {
    return ::GetPrivateProfileIntW(wide(section).c_str(), wide(key).c_str(), defaultValue,
                                   wide(resolveProfilePath(file)).c_str());
}

// The platform's write goes to a copy beside the file; the copy is flushed and
// moved over the file with write-through, so a reader sees the old file or the
// new one whenever the writer dies.
int WritePrivateProfileStringA(const QString& section, const QString& key, const QString& value,
                               const QString& file) {
    const QString path = resolveProfilePath(file);
    if (path.isEmpty()) return 0;
    removeStrayTemporaries(path);
    const QString temporary =
        path + QStringLiteral(".tmp-") +
        QString::number(QRandomGenerator::global()->generate(), 16).rightJustified(8, u'0');
    const std::wstring from = wide(temporary), to = wide(path);
    if (QFileInfo::exists(path) && !::CopyFileW(to.c_str(), from.c_str(), TRUE)) return 0;
    QString line = value;
    line.replace(u'\r', u' ').replace(u'\n', u' ');
    bool ok = ::WritePrivateProfileStringW(wide(section).c_str(), wide(key).c_str(),
                                           wide(line).c_str(), from.c_str()) != 0;
    ::WritePrivateProfileStringW(nullptr, nullptr, nullptr, from.c_str());  // out of the cache
    if (ok) {
        const HANDLE handle = ::CreateFileW(from.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                            FILE_ATTRIBUTE_NORMAL, nullptr);
        ok = handle != INVALID_HANDLE_VALUE && ::FlushFileBuffers(handle);
        if (handle != INVALID_HANDLE_VALUE) ::CloseHandle(handle);
    }
    ok = ok && ::MoveFileExW(from.c_str(), to.c_str(),
                             MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
    if (!ok) ::DeleteFileW(from.c_str());
    return ok ? 1 : 0;
}

QStringList profileSections(const QString& file) { return names(nullptr, file); }

QStringList profileKeys(const QString& section, const QString& file) {
    return names(wide(section).c_str(), file);
}

}  // namespace sidekin
