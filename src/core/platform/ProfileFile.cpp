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
#include <QStringDecoder>
#include <algorithm>
#include <cerrno>
#include <optional>
#include <vector>

#include "platform/Cp1252.h"
#include "platform/Paths.h"
#include "platform/SafeFile.h"

namespace sidekin {

namespace {

QString trimBlanks(const QString& text) {
    qsizetype begin = 0, end = text.size();
    while (begin < end && (text[begin] == u' ' || text[begin] == u'\t')) ++begin;
    while (end > begin && (text[end - 1] == u' ' || text[end - 1] == u'\t')) --end;
    return text.sliced(begin, end - begin);
}

QString unquoted(const QString& value) {
    if (value.size() >= 2 && (value.front() == u'"' || value.front() == u'\'') &&
        value.back() == value.front())
        return value.sliced(1, value.size() - 2);
    return value;
}

enum class Encoding { Utf8, Cp1252, Utf16Le };

// Stateless so that a sequence cut off at the end counts as an error; an initial
// U+FEFF is text here, the file's own mark has been taken off before.
QString decodeUtf8(QByteArrayView bytes, bool* valid = nullptr) {
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless |
                                                     QStringDecoder::Flag::ConvertInitialBom);
    QString text = decoder.decode(bytes);
    if (valid) *valid = !decoder.hasError();
    return text;
}

struct Layout {
    Encoding encoding = Encoding::Utf8;
    qsizetype bodyBegin = 0;  // past a byte-order mark
};

Layout detect(QByteArrayView bytes) {
    if (bytes.startsWith("\xFF\xFE")) return {Encoding::Utf16Le, 2};
    const qsizetype mark = bytes.startsWith("\xEF\xBB\xBF") ? 3 : 0;
    bool valid = false;
    decodeUtf8(bytes.sliced(mark), &valid);
    return {valid ? Encoding::Utf8 : Encoding::Cp1252, mark};
}

// One line of a profile file, as byte offsets into the whole file.
struct Line {
    enum Kind { Blank, Comment, Header, Key, Other };
    Kind kind = Other;
    qsizetype begin = 0;                     // first byte of the line
    qsizetype end = 0;                       // end of its text, before the line end
    qsizetype next = 0;                      // first byte of the following line
    qsizetype nameBegin = 0, nameEnd = 0;    // section or key name, trimmed
    qsizetype valueBegin = 0, valueEnd = 0;  // key value, trimmed, quotes still on
    QString name;
};

// A profile file split into classified lines. Line breaks, blanks and the
// characters that shape a line are single code units in every encoding read,
// so lines are split on code units and only names and values are decoded.
class ProfileText {
public:
    using Range = std::pair<size_t, size_t>;  // line indexes [header, next header)

    std::vector<Line> lines;

    explicit ProfileText(QByteArray content) : bytes(std::move(content)) {
        const Layout layout = detect(bytes);
        encoding = layout.encoding;
        bodyBegin = layout.bodyBegin;
        const qsizetype unit = unitSize();
        bodyEnd = bodyBegin + (bytes.size() - bodyBegin) / unit * unit;
        // A Ctrl-Z at the end marks the end of a text file, and is no part of the last value.
        while (bodyEnd > bodyBegin && unitAt(bodyEnd - unit) == 0x1A) bodyEnd -= unit;

        qsizetype pos = bodyBegin;
        while (pos < bodyEnd) {
            qsizetype end = pos;
            while (end < bodyEnd && unitAt(end) != u'\n' && unitAt(end) != u'\r') end += unit;
            qsizetype next = end;
            if (next < bodyEnd)
                next +=
                    (unitAt(next) == u'\r' && next + unit < bodyEnd && unitAt(next + unit) == u'\n')
                        ? 2 * unit
                        : unit;
            if (next > end && lineEnd.isEmpty()) lineEnd = bytes.sliced(end, next - end);
            lines.push_back(classify(pos, end, next));
            pos = next;
        }
        if (lineEnd.isEmpty()) lineEnd = *encode(QStringLiteral("\n"));
    }

    static ProfileText load(const QString& path) {
        QFile file(path);
        return ProfileText(!path.isEmpty() && file.open(QIODevice::ReadOnly) ? file.readAll()
                                                                             : QByteArray());
    }

    // The first section of this name; a later header of the same name starts a section of its own.
    std::optional<Range> section(const QString& name) const {
        for (size_t i = 0; i < lines.size(); ++i) {
            if (lines[i].kind != Line::Header || !sameName(lines[i], name)) continue;
            size_t end = i + 1;
            while (end < lines.size() && lines[end].kind != Line::Header) ++end;
            return Range{i, end};
        }
        return std::nullopt;
    }

    const Line* key(Range range, const QString& name) const {
        for (size_t i = range.first + 1; i < range.second; ++i)
            if (lines[i].kind == Line::Key && sameName(lines[i], name)) return &lines[i];
        return nullptr;
    }

    std::optional<QString> value(const QString& sectionName, const QString& keyName) const {
        const auto range = section(sectionName);
        const Line* line = range ? key(*range, keyName) : nullptr;
        if (!line) return std::nullopt;
        return unquoted(decode(line->valueBegin, line->valueEnd));
    }

    QStringList names(Line::Kind kind, size_t first, size_t last) const {
        QStringList result;
        for (size_t i = first; i < last; ++i)
            if (lines[i].kind == kind && !result.contains(lines[i].name, Qt::CaseInsensitive))
                result << lines[i].name;
        return result;
    }

    // The whole file with the key set, in the file's encoding when it can hold
    // the result. A cp1252 file that can't, or that would then read as UTF-8,
    // is written as UTF-8 as a whole.
    QByteArray withKey(const QString& sectionName, const QString& keyName,
                       const QString& value) const {
        const auto out = spliced(sectionName, keyName, value);
        if (encoding != Encoding::Cp1252 || (out && detect(*out).encoding == Encoding::Cp1252))
            return *out;
        const QByteArray utf8 =
            bytes.first(bodyBegin) + decode(bodyBegin, bodyEnd).toUtf8() + bytes.sliced(bodyEnd);
        return ProfileText(utf8).withKey(sectionName, keyName, value);
    }

private:
    qsizetype unitSize() const { return encoding == Encoding::Utf16Le ? 2 : 1; }

    char16_t unitAt(qsizetype pos) const {
        const auto byte = [&](qsizetype i) { return char16_t(uchar(bytes[i])); };
        return encoding == Encoding::Utf16Le ? char16_t(byte(pos) | byte(pos + 1) << 8) : byte(pos);
    }

    bool sameName(const Line& line, const QString& wanted) const {
        return line.name.compare(wanted, Qt::CaseInsensitive) == 0;
    }

    // Offsets of the text in [begin, end) without blanks around it.
    std::pair<qsizetype, qsizetype> trimmed(qsizetype begin, qsizetype end) const {
        const qsizetype unit = unitSize();
        const auto blank = [&](qsizetype at) { return unitAt(at) == u' ' || unitAt(at) == u'\t'; };
        while (begin < end && blank(begin)) begin += unit;
        while (end > begin && blank(end - unit)) end -= unit;
        return {begin, end};
    }

    Line classify(qsizetype begin, qsizetype end, qsizetype next) const {
        Line line{Line::Other, begin, end, next, 0, 0, 0, 0, {}};
        const qsizetype unit = unitSize();
        const auto [first, last] = trimmed(begin, end);
        qsizetype at = last;
        if (first == last) {
            line.kind = Line::Blank;
        } else if (unitAt(first) == u';') {
            line.kind = Line::Comment;
        } else if (unitAt(first) == u'[') {
            while (at > first + unit && unitAt(at - unit) != u']') at -= unit;
            if (at > first + unit) {
                line.kind = Line::Header;
                std::tie(line.nameBegin, line.nameEnd) = trimmed(first + unit, at - unit);
            }
        }
        if (line.kind == Line::Other) {
            for (at = first; at < last && unitAt(at) != u'='; at += unit) {
            }
            if (at < last) {
                line.kind = Line::Key;
                std::tie(line.nameBegin, line.nameEnd) = trimmed(first, at);
                std::tie(line.valueBegin, line.valueEnd) = trimmed(at + unit, last);
            }
        }
        line.name = decode(line.nameBegin, line.nameEnd);
        return line;
    }

    QString decode(qsizetype begin, qsizetype end) const {
        const QByteArrayView raw = QByteArrayView(bytes).sliced(begin, end - begin);
        QString text;
        switch (encoding) {
            case Encoding::Utf8:
                return decodeUtf8(raw);
            case Encoding::Cp1252:
                text.reserve(raw.size());
                for (const char c : raw) {
                    const uchar b = uchar(c);
                    text += QChar(b >= 0x80 && b < 0xA0 ? kCp1252High[b - 0x80] : char16_t(b));
                }
                return text;
            case Encoding::Utf16Le:
                text.reserve(raw.size() / 2);
                for (qsizetype at = begin; at < end; at += 2) text += QChar(unitAt(at));
                return text;
        }
        return text;
    }

    // Nothing when cp1252 has no byte for a character.
    std::optional<QByteArray> encode(const QString& text) const {
        QByteArray out;
        switch (encoding) {
            case Encoding::Utf8:
                return text.toUtf8();
            case Encoding::Cp1252:
                for (const QChar c : text) {
                    const char16_t u = c.unicode();
                    if (u < 0x80 || (u >= 0xA0 && u < 0x100)) {
                        out += char(u);
                        continue;
                    }
                    const auto high = std::find(std::begin(kCp1252High), std::end(kCp1252High), u);
                    if (high == std::end(kCp1252High)) return std::nullopt;
                    out += char(0x80 + (high - std::begin(kCp1252High)));
                }
                return out;
            case Encoding::Utf16Le:
                for (const QChar c : text)
                    out += char(c.unicode() & 0xFF), out += char(c.unicode() >> 8);
                return out;
        }
        return out;
    }

    std::optional<QByteArray> spliced(const QString& sectionName, const QString& keyName,
                                      const QString& value) const {
        QByteArray out = bytes;
        const auto range = section(sectionName);
        if (const Line* line = range ? key(*range, keyName) : nullptr) {
            auto text = encode(u'=' + value);
            if (!text) return std::nullopt;
            // A Ctrl-Z closing the last line would read as the end of the file.
            if (line->next == line->end && value.endsWith(QChar(0x1A))) *text += lineEnd;
            return out.replace(
                line->begin, line->end - line->begin,
                bytes.sliced(line->nameBegin, line->nameEnd - line->nameBegin) + *text);
        }
        const auto keyLine = encode(keyName + u'=' + value);
        if (!keyLine) return std::nullopt;
        if (!range) {
            const auto header = encode(u'[' + sectionName + u']');
            if (!header) return std::nullopt;
            const bool open = !lines.empty() && lines.back().next == lines.back().end;
            return out.insert(
                bodyEnd, (open ? lineEnd : QByteArray()) + *header + lineEnd + *keyLine + lineEnd);
        }
        const Line* last = &lines[range->first];
        for (size_t i = range->first + 1; i < range->second; ++i)
            if (lines[i].kind != Line::Blank) last = &lines[i];
        const QByteArray added = *keyLine + lineEnd;
        return out.insert(last->next, last->next == last->end ? lineEnd + added : added);
    }

    QByteArray bytes;
    Encoding encoding = Encoding::Utf8;
    qsizetype bodyBegin = 0;  // past a byte-order mark
    qsizetype bodyEnd = 0;    // before a closing Ctrl-Z or an odd last byte of UTF-16
    QByteArray lineEnd;       // the file's first line end, LF when it has none
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

}  // namespace

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

    QString line = value;
    line.replace(u'\r', u' ').replace(u'\n', u' ');
    return replaceFileSafely(path, ProfileText(old).withKey(sectionName, keyName, line), mode) ? 1
                                                                                               : 0;
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
