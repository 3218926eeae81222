// One write into any file: it answers 1 exactly for names a file can hold, the
// value reads back, every other key reads as before, and the bytes change
// within one line (or, for a cp1252 file that had to become UTF-8, everywhere).
#include <fuzzer/FuzzedDataProvider.h>

#include <QStringDecoder>
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "ProfileFile.h"
#include "ProfileFuzz.h"

using namespace sidekin;

namespace {

QString trimmed(const QString& text) {
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

bool validUtf8(QByteArrayView bytes) {
    if (bytes.startsWith("\xEF\xBB\xBF")) bytes = bytes.sliced(3);
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder.decode(bytes);  // decodes only when made a QString
    return !decoder.hasError();
}

// The code units (bytes, or 16-bit units of a UTF-16 file) that differ, between
// the longest common beginning and end, hold no line break of the old file.
// Compared byte by byte, a UTF-16 window can slip half a unit onto a line end.
std::vector<char16_t> unitsOf(const QByteArray& bytes, bool utf16) {
    std::vector<char16_t> units;
    if (!utf16) {
        for (const char c : bytes) units.push_back(char16_t(uchar(c)));
        return units;
    }
    for (qsizetype at = 0; at + 1 < bytes.size(); at += 2)
        units.push_back(char16_t(uchar(bytes[at]) | uchar(bytes[at + 1]) << 8));
    return units;
}

bool changedWithinOneLine(const QByteArray& before, const QByteArray& after) {
    const bool utf16 = before.startsWith("\xFF\xFE");
    const std::vector<char16_t> old = unitsOf(before, utf16), now = unitsOf(after, utf16);
    const std::size_t shorter = std::min(old.size(), now.size());
    std::size_t prefix = 0;
    while (prefix < shorter && old[prefix] == now[prefix]) ++prefix;
    std::size_t suffix = 0;
    while (suffix < shorter - prefix &&
           old[old.size() - 1 - suffix] == now[now.size() - 1 - suffix])
        ++suffix;
    for (std::size_t at = prefix; at < old.size() - suffix; ++at)
        if (old[at] == u'\r' || old[at] == u'\n') return false;
    return true;
}

struct Entry {
    QString section, key, value;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    const QString section = QString::fromStdString(input.ConsumeRandomLengthString(64));
    const QString key = QString::fromStdString(input.ConsumeRandomLengthString(64));
    const QString value = QString::fromStdString(input.ConsumeRandomLengthString(256));
    const std::string rest = input.ConsumeRemainingBytesAsString();
    const QByteArray before(rest.data(), qsizetype(rest.size()));
    const QString path = profileWith(before);

    std::vector<Entry> entries;
    for (const QString& s : profileSections(path))
        for (const QString& k : profileKeys(s, path))
            if (entries.size() < kKeysChecked)
                entries.push_back({s, k, readValue(s, k, path).value()});

    const QString sectionName = trimmed(section), keyName = trimmed(key);
    const auto breaks = [](const QString& name) {
        return name.contains(u'\r') || name.contains(u'\n');
    };
    const bool writable = !sectionName.isEmpty() && !keyName.isEmpty() && !breaks(sectionName) &&
                          !breaks(keyName) && !keyName.contains(u'=') &&
                          !keyName.startsWith(u';') && !keyName.startsWith(u'[');
    const int written = WritePrivateProfileStringA(section, key, value, path);
    if (written != (writable ? 1 : 0)) std::abort();
    const QByteArray after = contentsOf(path);
    if (!written) {
        if (after != before) std::abort();
        return 0;
    }

    const QString expected =
        unquoted(trimmed(QString(value).replace(u'\r', u' ').replace(u'\n', u' ')));
    if (readValue(section, key, path) != expected) std::abort();
    for (const Entry& e : entries) {
        if (e.section.compare(sectionName, Qt::CaseInsensitive) == 0 &&
            e.key.compare(keyName, Qt::CaseInsensitive) == 0)
            continue;
        if (readValue(e.section, e.key, path) != e.value) std::abort();
    }
    const bool becameUtf8 =
        !before.startsWith("\xFF\xFE") && !validUtf8(before) && validUtf8(after);
    if (!becameUtf8 && !changedWithinOneLine(before, after)) std::abort();
    return 0;
}
