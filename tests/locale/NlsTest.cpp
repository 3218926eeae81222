// The library stand-in, the fetching of texts by number, and the built-in tables: the English
// one against what the program does with its texts, the others against the English one.

#include <QDir>
#include <QLocale>
#include <QMap>
#include <QRegularExpression>

#include "AppState.h"
#include "G11n.h"
#include "Nls.h"
#include "StartupFixture.h"
#include "platform/Conversions.h"

// The resource macros must be used outside any namespace.
static void dropEmbeddedTables() { Q_CLEANUP_RESOURCE(texts); }
static void restoreEmbeddedTables() { Q_INIT_RESOURCE(texts); }

namespace sidekin::test {
namespace {

using NlsLibrary = StartupFixture;

TEST_F(NlsLibrary, LanguageIsOverrideThenEnvironmentThenSystem) {
    setNlsLanguage("");
    qunsetenv("SIDEKIN_LANG");
    EXPECT_EQ(nlsLanguage(), QLocale::system().name());
    qputenv("SIDEKIN_LANG", "fr");
    setNlsLanguage("de");
    EXPECT_EQ(nlsLanguage(), "de");
    setNlsLanguage("");
    EXPECT_EQ(nlsLanguage(), "fr");
    qunsetenv("SIDEKIN_LANG");
}

TEST_F(NlsLibrary, PicksTheClosestTableForTheLanguage) {
    const QString builtIn = "Zentrovar Sidekin";
    // Each lab table holds its own name as text 17002; the lab's English beats the built-in.
    const struct {
        const char* language;
        QStringList labTables;
        QString expected;
    } cases[] = {{"de_DE", {"de_DE", "de"}, "de_DE"},
                 {"de_DE", {"de"}, "de"},
                 {"de_DE.UTF-8", {"de_DE"}, "de_DE"},
                 {"de_CH", {"de_DE"}, builtIn},
                 {"fr", {}, builtIn},
                 {"fr", {"en"}, "en"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.language);
        TempFolder folder;
        for (const QString& table : c.labTables)
            folder.write(table + ".txt", ("17002=" + table).toUtf8());
        qputenv("SIDEKIN_TEXTS_DIR", folder.path().toUtf8());
        setNlsLanguage(c.language);
        EXPECT_EQ(NLSInit(0), 1);
        EXPECT_EQ(GetResourceString(17002), c.expected);
    }
}

TEST_F(NlsLibrary, ReadsTheTableFileFormat) {
    useTexts(
        "\xEF\xBB\xBF"
        "17001=after the byte order mark\n# 17002=comment\r\n\n"
        "17003= lead and trail  \r\n17004=a\\nb\\tc\\\\d\n17005=C:\\Data\\q\\\n17006=a=b\n"
        "17007 =blank before the mark\n 17008=blank before the id\nx17009=not a number\n"
        "17010=first\n17010=second\n17011=\xC3\xBC\xC3\x9F \xE6\x97\xA5\n17012=no line end");
    QStringList texts;
    for (int id = 17001; id <= 17012; ++id) texts << GetResourceString(id);
    EXPECT_EQ(texts,
              (QStringList{"after the byte order mark", "", " lead and trail  ", "a\nb\tc\\d",
                           "C:\\Data\\q\\", "a=b", "", "", "", "second",
                           QString::fromUtf8("\xC3\xBC\xC3\x9F \xE6\x97\xA5"), "no line end"}));
}

TEST_F(NlsLibrary, TextsAreCutFetchedAndFilledIn) {
    useTexts("17002=Hello world\n17004=" + QByteArray(151, 'y') +
             "\n17215=Vial <NUMBER1> is not in <NUMBER2>..<NUMBER1>\n17216=plain");
    EXPECT_EQ(GetResourceString(17004), QString(150, 'y'));
    EXPECT_EQ(App.GlblNlsBuffer.size(), 150);
    QString buffer;
    EXPECT_EQ(LoadString(0, 17002, buffer, 5), "Hello");
    EXPECT_EQ(buffer, "Hello");
    EXPECT_EQ(ResourceWithTokens(17215, "<NUMBER1>", "9"), "Vial 9 is not in <NUMBER2>..9");
    EXPECT_EQ(ResourceWithTokens(17216, "", "9"), "plain");
}

TEST_F(NlsLibrary, NoTableAtAllIsToldOnceAndLeavesTextsEmpty) {
    qputenv("SIDEKIN_TEXTS_DIR", texts.path().toUtf8());
    setNlsLanguage("xx");
    dropEmbeddedTables();
    NLSInitialization();
    EXPECT_EQ(GetResourceString(17002), "");
    restoreEmbeddedTables();
    EXPECT_EQ(dialogs.shown, (std::vector<Shown>{{Shown::Box, BoxStyle::Critical,
                                                  "Error in loading NLSLibraries", "Error"}}));
}

QStringList textsOf(int first, int last) {
    QStringList texts;
    for (int id = first; id <= last; ++id) texts << GetResourceString(id);
    return texts;
}

// The whole text of id, as the library holds it, without the 150 cut.
QString fullText(int id) {
    char16_t buffer[1000];
    return QString::fromUtf16(buffer, NLSLoadStringW(0, id, buffer, 1000));
}

using EnglishTable = StartupFixture;  // starts on the built-in English table

TEST_F(EnglishTable, TextsTheProgramComparesOrReads) {
    for (int id : {17101, 17103, 17104, 17105, 17106, 17107})  // a number follows
        EXPECT_TRUE(GetResourceString(id).endsWith(' ')) << id;
    for (int id : {17040, 17041, 17042}) EXPECT_FALSE(IsNumeric(GetResourceString(id))) << id;
    // A method's source is found by containment, so no source name holds another.
    const QStringList sources = textsOf(17321, 17323);
    for (const QString& a : sources)
        for (const QString& b : sources) EXPECT_TRUE(&a == &b || !a.contains(b));
    for (const QString& header : textsOf(17025, 17034)) EXPECT_FALSE(header.contains('|'));
    for (int id : {17316, 17317, 17318, 17319}) EXPECT_GT(CDbl(GetResourceString(id)), 0.0) << id;
    EXPECT_EQ(CDbl(GetResourceString(17320)), 0.0);  // the default character set
}

using BuiltInTables = StartupFixture;

// A translation lacking an id, dropping a token or the blank before a run number,
// or giving two compared texts the same words, breaks the program in that language.
TEST_F(BuiltInTables, EachHasTheEnglishIdsTokensAndBlanks) {
    const auto load = [](const QString& language) {
        setNlsLanguage(language);
        EXPECT_EQ(NLSInit(0), 1);
        QMap<int, QString> texts;
        for (int id = 17000; id < 17400; ++id)
            if (const QString text = fullText(id); !text.isEmpty()) texts.insert(id, text);
        return texts;
    };
    const auto tokens = [](const QString& text) {
        QStringList found;
        for (const auto& match : QRegularExpression("<[A-Z0-9]+>").globalMatch(text))
            found << match.captured();
        found.sort();
        return found;
    };
    const QMap<int, QString> english = load("en");
    const QStringList tables = QDir(":/texts").entryList({"*.txt"});
    EXPECT_GT(tables.size(), 1);
    for (const QString& table : tables) {
        const QString language = table.chopped(4);
        const QMap<int, QString> texts = load(language);
        EXPECT_EQ(texts.keys(), english.keys()) << language.toStdString();
        for (auto [id, text] : texts.asKeyValueRange()) {
            const QString& en = english[id];
            EXPECT_LE(text.size(), 150) << id;
            EXPECT_EQ(tokens(text), tokens(en)) << id;
            EXPECT_EQ(text.endsWith(' '), en.endsWith(' ')) << id;
            EXPECT_EQ(text.contains('&'), en.contains('&')) << id;
        }
        EXPECT_TRUE(QRegularExpression("^[0-9]").match(texts.value(17320)).hasMatch());
        // Vial entries and injection types, Start/Pause/Resume and the status words differ.
        for (QStringList group :
             {textsOf(17040, 17048), textsOf(17016, 17018), textsOf(17300, 17315)})
            EXPECT_EQ(group.removeDuplicates(), 0) << group.join(" / ").toStdString();
    }
}

}  // namespace
}  // namespace sidekin::test
