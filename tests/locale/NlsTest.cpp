// The library stand-in and the fetching of texts by number.

#include <QLocale>

#include "AppState.h"
#include "G11n.h"
#include "Nls.h"
#include "StartupFixture.h"

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

}  // namespace
}  // namespace sidekin::test
