#include "Nls.h"

#include <QFile>
#include <QHash>
#include <QLocale>
#include <QRegularExpression>
#include <QStringList>
#include <algorithm>

// Q_INIT_RESOURCE declares its function at block scope, which must not be
// inside a namespace. Calling it also keeps the linker from dropping the
// tables out of this static library.
static void registerEmbeddedTables() {
    static const bool registered = [] {
        Q_INIT_RESOURCE(texts);
        return true;
    }();
    (void)registered;
}

namespace sidekin {

namespace {

struct Library {
    QHash<std::int32_t, QString> texts;
    bool open = false;
    QString languageOverride;
};

Library& library() {
    static Library instance;
    return instance;
}

// \n, \t and \\ stand for a line break, a tab and a backslash; any other
// backslash stays as written, so Windows paths in a text survive.
QString unescape(QStringView raw) {
    QString text;
    text.reserve(raw.size());
    for (qsizetype i = 0; i < raw.size(); ++i) {
        const QChar c = raw[i];
        if (c == u'\\' && i + 1 < raw.size()) {
            const QChar next = raw[i + 1];
            if (next == u'n') {
                text += u'\n';
                ++i;
                continue;
            }
            if (next == u't') {
                text += u'\t';
                ++i;
                continue;
            }
            if (next == u'\\') {
                text += u'\\';
                ++i;
                continue;
            }
        }
        text += c;
    }
    return text;
}

// One entry per line, "id=text"; the text runs verbatim to the line end.
// Lines that are not of that form are ignored, like comments.
QHash<std::int32_t, QString> parseTable(const QByteArray& bytes) {
    QHash<std::int32_t, QString> texts;
    QString content = QString::fromUtf8(bytes);
    if (content.startsWith(QChar(0xFEFF))) content.remove(0, 1);
    const QStringList lines = content.split(u'\n');
    for (QStringView line : lines) {
        // Tables edited on Windows keep their CR; it is no part of the text.
        if (line.endsWith(u'\r')) line.chop(1);
        if (line.isEmpty() || line.startsWith(u'#')) continue;
        const qsizetype eq = line.indexOf(u'=');
        if (eq <= 0) continue;
        const QStringView id = line.left(eq);
        if (!std::all_of(id.begin(), id.end(), [](QChar c) { return c.isDigit(); })) continue;
        bool ok = false;
        const std::int32_t number = id.toInt(&ok);
        if (!ok) continue;
        texts.insert(number, unescape(line.mid(eq + 1)));
    }
    return texts;
}

// "de_DE.UTF-8" -> "de_DE.UTF-8", "de_DE", "de", then English.
QStringList candidateLanguages(const QString& language) {
    QStringList candidates{language};
    const qsizetype encoding = language.indexOf(QRegularExpression(QStringLiteral("[.@]")));
    if (encoding > 0) candidates << language.left(encoding);
    const qsizetype region = language.indexOf(QRegularExpression(QStringLiteral("[_.@-]")));
    if (region > 0) candidates << language.left(region);
    candidates << QStringLiteral("en");
    candidates.removeDuplicates();
    candidates.removeAll(QString());
    return candidates;
}

// A lab's folder comes before the tables built in; a file that cannot be
// read counts as absent, so the search goes on to the next place.
bool readTable(const QString& language, QByteArray& bytes) {
    QStringList places;
    const QString folder = qEnvironmentVariable("SIDEKIN_TEXTS_DIR");
    if (!folder.isEmpty()) places << folder + u'/' + language + QStringLiteral(".txt");
    places << QStringLiteral(":/texts/") + language + QStringLiteral(".txt");
    for (const QString& place : places) {
        QFile file(place);
        if (file.open(QIODevice::ReadOnly)) {
            bytes = file.readAll();
            if (file.error() == QFileDevice::NoError) return true;
        }
    }
    return false;
}

}  // namespace

std::int16_t NLSTaskInit() { return 1; }

std::int16_t NLSInit(std::int32_t) {
    registerEmbeddedTables();
    Library& lib = library();
    lib.texts.clear();
    lib.open = false;
    for (const QString& language : candidateLanguages(nlsLanguage())) {
        QByteArray bytes;
        if (readTable(language, bytes)) {
            lib.texts = parseTable(bytes);
            lib.open = true;
            return 1;
        }
    }
    return 0;
}

std::int32_t NLSLoadStringW(std::int32_t, std::int32_t id, char16_t* buffer, std::int32_t size) {
    const Library& lib = library();
    if (!lib.open || buffer == nullptr || size <= 0) return 0;
    const auto found = lib.texts.constFind(id);
    if (found == lib.texts.constEnd()) return 0;
    const auto count = static_cast<std::int32_t>(std::min<qsizetype>(found->size(), size));
    std::copy_n(found->utf16(), count, buffer);
    return count;
}

QString nlsLanguage() {
    const Library& lib = library();
    if (!lib.languageOverride.isEmpty()) return lib.languageOverride;
    const QString fromEnvironment = qEnvironmentVariable("SIDEKIN_LANG");
    if (!fromEnvironment.isEmpty()) return fromEnvironment;
    return QLocale::system().name();
}

void setNlsLanguage(const QString& language) { library().languageOverride = language; }

QString englishText(std::int32_t id) {
    static const QHash<std::int32_t, QString> english = [] {
        registerEmbeddedTables();
        QFile file(QStringLiteral(":/texts/en.txt"));
        return file.open(QIODevice::ReadOnly) ? parseTable(file.readAll())
                                              : QHash<std::int32_t, QString>{};
    }();
    return english.value(id);
}

void resetNls() { library() = Library{}; }

}  // namespace sidekin
