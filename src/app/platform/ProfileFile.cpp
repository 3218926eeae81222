#include "platform/ProfileFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QStandardPaths>
#include <algorithm>
#include <cerrno>
#include <optional>
#include <vector>

#include "platform/Paths.h"

namespace sidekin {

namespace {

bool isBlank(char c) { return c == ' ' || c == '\t'; }

QByteArrayView trimBlanks(QByteArrayView text) {
    while (!text.isEmpty() && isBlank(text.front())) text = text.sliced(1);
    while (!text.isEmpty() && isBlank(text.back())) text.chop(1);
    return text;
}

QString trimBlanks(const QString& text) {
    qsizetype begin = 0, end = text.size();
    while (begin < end && (text[begin] == u' ' || text[begin] == u'\t')) ++begin;
    while (end > begin && (text[end - 1] == u' ' || text[end - 1] == u'\t')) --end;
    return text.sliced(begin, end - begin);
}

QByteArrayView unquoted(QByteArrayView value) {
    if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
        value.back() == value.front())
        return value.sliced(1, value.size() - 2);
    return value;
}

bool sameName(QByteArrayView stored, const QString& wanted) {
    return QString::fromUtf8(stored).compare(wanted, Qt::CaseInsensitive) == 0;
}

// One line of a profile file. Offsets point into the whole file, views into its bytes.
struct Line {
    enum Kind { Blank, Comment, Header, Key, Other };
    Kind kind = Other;
    qsizetype begin = 0;   // first byte of the line
    qsizetype end = 0;     // end of its text, before the line end
    qsizetype next = 0;    // first byte of the following line
    QByteArrayView name;   // section or key name, trimmed
    QByteArrayView value;  // key value, trimmed, quotes still on
};

Line classify(QByteArrayView file, qsizetype begin, qsizetype end, qsizetype next) {
    Line line{Line::Other, begin, end, next, {}, {}};
    const QByteArrayView text = trimBlanks(file.sliced(begin, end - begin));
    qsizetype at = -1;
    if (text.isEmpty()) {
        line.kind = Line::Blank;
    } else if (text.front() == ';') {
        line.kind = Line::Comment;
    } else if (text.front() == '[' && (at = text.lastIndexOf(']')) > 0) {
        line.kind = Line::Header;
        line.name = trimBlanks(text.sliced(1, at - 1));
    } else if ((at = text.indexOf('=')) >= 0) {
        line.kind = Line::Key;
        line.name = trimBlanks(text.first(at));
        line.value = trimBlanks(text.sliced(at + 1));
    }
    return line;
}

// A profile file split into classified lines.
class ProfileText {
public:
    using Range = std::pair<size_t, size_t>;  // line indexes [header, next header)

    explicit ProfileText(QByteArray content) : bytes(std::move(content)) {
        const QByteArrayView b = bytes;
        const qsizetype size = b.size();
        qsizetype pos = b.startsWith("\xEF\xBB\xBF") ? 3 : 0;
        bodyStart = pos;
        while (pos < size) {
            qsizetype end = pos;
            while (end < size && b[end] != '\n' && b[end] != '\r') ++end;
            qsizetype next = end;
            if (next < size)
                next += (b[next] == '\r' && next + 1 < size && b[next + 1] == '\n') ? 2 : 1;
            if (next > end && lineEnd.isEmpty()) lineEnd = b.sliced(end, next - end).toByteArray();
            lines.push_back(classify(b, pos, end, next));
            pos = next;
        }
        if (lineEnd.isEmpty()) lineEnd = "\n";
    }

    static ProfileText load(const QString& path) {
        QFile file(path);
        return ProfileText(!path.isEmpty() && file.open(QIODevice::ReadOnly) ? file.readAll()
                                                                             : QByteArray());
    }

    // The first section of this name; a later header of the same name starts a section of its own.
    std::optional<Range> section(const QString& name) const {
        for (size_t i = 0; i < lines.size(); ++i) {
            if (lines[i].kind != Line::Header || !sameName(lines[i].name, name)) continue;
            size_t end = i + 1;
            while (end < lines.size() && lines[end].kind != Line::Header) ++end;
            return Range{i, end};
        }
        return std::nullopt;
    }

    const Line* key(Range range, const QString& name) const {
        for (size_t i = range.first + 1; i < range.second; ++i)
            if (lines[i].kind == Line::Key && sameName(lines[i].name, name)) return &lines[i];
        return nullptr;
    }

    std::optional<QString> value(const QString& sectionName, const QString& keyName) const {
        const auto range = section(sectionName);
        const Line* line = range ? key(*range, keyName) : nullptr;
        if (!line) return std::nullopt;
        return QString::fromUtf8(unquoted(line->value));
    }

    QStringList names(Line::Kind kind, size_t first, size_t last) const {
        QStringList result;
        for (size_t i = first; i < last; ++i) {
            if (lines[i].kind != kind) continue;
            const QString name = QString::fromUtf8(lines[i].name);
            if (!result.contains(name, Qt::CaseInsensitive)) result << name;
        }
        return result;
    }

    // The whole file with the key set: its line rewritten, or a line added.
    QByteArray withKey(const QString& sectionName, const QString& keyName,
                       const QByteArray& value) const {
        QByteArray out = bytes;
        const auto range = section(sectionName);
        if (!range) {
            if (out.size() > bodyStart && !out.endsWith('\n') && !out.endsWith('\r'))
                out += lineEnd;
            return out + '[' + sectionName.toUtf8() + ']' + lineEnd + keyName.toUtf8() + '=' +
                   value + lineEnd;
        }
        if (const Line* line = key(*range, keyName)) {
            return out.replace(line->begin, line->end - line->begin,
                               line->name.toByteArray() + '=' + value);
        }
        const Line* last = &lines[range->first];
        for (size_t i = range->first + 1; i < range->second; ++i)
            if (lines[i].kind != Line::Blank) last = &lines[i];
        const QByteArray added = keyName.toUtf8() + '=' + value + lineEnd;
        return out.insert(last->next, last->next == last->end ? lineEnd + added : added);
    }

    QByteArray bytes;
    qsizetype bodyStart = 0;  // past a byte-order mark
    std::vector<Line> lines;
    QByteArray lineEnd;  // the file's first line end, LF when it has none
};

std::optional<QString> storedValue(const QString& section, const QString& key,
                                   const QString& file) {
    return ProfileText::load(resolveProfilePath(file)).value(trimBlanks(section), trimBlanks(key));
}

// Names that would read back as something else are refused.
bool writableName(const QString& name, bool isKey) {
    if (name.isEmpty() || name.contains(u'\r') || name.contains(u'\n')) return false;
    return !isKey || !(name.contains(u'=') || name.startsWith(u';') || name.startsWith(u'['));
}

bool writeAll(int fd, const QByteArray& bytes) {
    qsizetype done = 0;
    while (done < bytes.size()) {
        const ssize_t n = ::write(fd, bytes.constData() + done, size_t(bytes.size() - done));
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return false;
        done += n;
    }
    return true;
}

// A writer holds a lock on its temporary until the rename, so an unlocked
// temporary was left by a writer that died.
void removeStrayTemporaries(const QString& folder, const QString& prefix) {
    for (const QString& name : QDir(folder).entryList(QDir::Files | QDir::Hidden | QDir::System)) {
        if (!name.startsWith(prefix)) continue;
        const QByteArray path = QFile::encodeName(folder + '/' + name);
        const int fd = ::open(path.constData(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC);
        if (fd < 0) continue;
        if (::flock(fd, LOCK_EX | LOCK_NB) == 0) ::unlink(path.constData());
        ::close(fd);
    }
}

bool syncFolder(const QString& folder) {
    const int fd =
        ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) return false;
    const bool synced = ::fsync(fd) == 0;
    return ::close(fd) == 0 && synced;
}

// Temporary beside the file, synced, renamed over it, folder synced: a reader
// sees the old file or the new one, never a mix, whenever the writer dies.
bool replaceFile(const QString& path, const QByteArray& bytes, std::optional<mode_t> mode) {
    const QFileInfo info(path);
    const QString folder = info.absolutePath();
    const QString prefix = '.' + info.fileName() + ".tmp-";
    removeStrayTemporaries(folder, prefix);

    QByteArray temporary;
    int fd = -1;
    for (int attempt = 0; attempt < 16 && fd < 0; ++attempt) {
        const quint32 tag = QRandomGenerator::global()->generate();
        temporary = QFile::encodeName(folder + '/' + prefix +
                                      QString::number(tag, 16).rightJustified(8, u'0'));
        fd = ::open(temporary.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (fd < 0 && errno != EEXIST) return false;
    }
    if (fd < 0) return false;
    bool ok = ::flock(fd, LOCK_EX) == 0 && (!mode || ::fchmod(fd, *mode) == 0) &&
              writeAll(fd, bytes) && ::fsync(fd) == 0 &&
              ::rename(temporary.constData(), QFile::encodeName(path).constData()) == 0;
    ok = ::close(fd) == 0 && ok;
    if (!ok) {
        ::unlink(temporary.constData());
        return false;
    }
    return syncFolder(folder);
}

}  // namespace

QString profileFolder() {
    if (!qEnvironmentVariableIsEmpty("ZENTROVAR_CONFIG_DIR"))
        return nativePath(qEnvironmentVariable("ZENTROVAR_CONFIG_DIR"));
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/zentrovar");
}

QString resolveProfilePath(const QString& file) {
    QString path = nativePath(file);
    if (path.isEmpty()) return {};
    if (!path.contains(u'/')) path = profileFolder() + u'/' + path;
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
}

int GetPrivateProfileStringA(const QString& section, const QString& key,
                             const QString& defaultValue, QString& buffer, int size,
                             const QString& file) {
    const auto value = storedValue(section, key, file);
    QString result = value.value_or(defaultValue);
    while (!value && (result.endsWith(u' ') || result.endsWith(u'\t'))) result.chop(1);
    result.truncate(qMax(size - 1, 0));
    if (!result.isEmpty() && result.back().isHighSurrogate()) result.chop(1);
    buffer = result;
    return int(buffer.size());
}

unsigned int GetPrivateProfileIntA(const QString& section, const QString& key, int defaultValue,
                                   const QString& file) {
    const auto value = storedValue(section, key, file);
    if (!value || value->isEmpty()) return static_cast<unsigned int>(defaultValue);
    qsizetype i = 0;
    while (i < value->size() && (value->at(i) == u' ' || value->at(i) == u'\t')) ++i;
    bool negative = false;
    if (i < value->size() && (value->at(i) == u'+' || value->at(i) == u'-'))
        negative = value->at(i++) == u'-';
    unsigned int number = 0;  // wraps like the 32-bit original
    for (; i < value->size() && value->at(i) >= u'0' && value->at(i) <= u'9'; ++i)
        number = number * 10 + unsigned(value->at(i).unicode() - '0');
    return negative ? 0u - number : number;
}

int WritePrivateProfileStringA(const QString& section, const QString& key, const QString& value,
                               const QString& file) {
    const QString sectionName = trimBlanks(section);
    const QString keyName = trimBlanks(key);
    QString path = resolveProfilePath(file);
    if (path.isEmpty() || !writableName(sectionName, false) || !writableName(keyName, true))
        return 0;

    QByteArray old;
    std::optional<mode_t> mode;
    struct stat status {};
    if (::stat(QFile::encodeName(path).constData(), &status) == 0) {
        // Root may write anywhere; a file without its owner's write bit is still read-only.
        if (!S_ISREG(status.st_mode) || !(status.st_mode & S_IWUSR)) return 0;
        path = QFileInfo(path).canonicalFilePath();  // replace a link's target, not the link
        QFile existing(path);
        if (path.isEmpty() || !existing.open(QIODevice::ReadOnly)) return 0;
        old = existing.readAll();
        if (existing.error() != QFileDevice::NoError) return 0;
        mode = status.st_mode & 07777;
    } else if (errno != ENOENT) {
        return 0;
    }

    QByteArray line = value.toUtf8();
    line.replace('\r', ' ').replace('\n', ' ');
    return replaceFile(path, ProfileText(old).withKey(sectionName, keyName, line), mode) ? 1 : 0;
}

QStringList profileSections(const QString& file) {
    const ProfileText text = ProfileText::load(resolveProfilePath(file));
    return text.names(Line::Header, 0, text.lines.size());
}

QStringList profileKeys(const QString& section, const QString& file) {
    const ProfileText text = ProfileText::load(resolveProfilePath(file));
    const auto range = text.section(trimBlanks(section));
    return range ? text.names(Line::Key, range->first + 1, range->second) : QStringList();
}

}  // namespace sidekin
