// The library stand-in and the fetching of texts by number.

#include <QDir>
#include <QLocale>

#include "NlsFixture.h"

// The resource macros must be used outside any namespace.
static void dropEmbeddedTables() { Q_CLEANUP_RESOURCE(texts); }
static void restoreEmbeddedTables() { Q_INIT_RESOURCE(texts); }

namespace sidekin::test {
namespace {

using NlsLibrary = NlsFixture;

TEST_F(NlsLibrary, LanguageIsOverrideThenEnvironmentThenSystem) {
    EXPECT_EQ(nlsLanguage(), QLocale::system().name());
    qputenv("SIDEKIN_LANG", "fr");
    EXPECT_EQ(nlsLanguage(), "fr");
    setNlsLanguage("de");
    EXPECT_EQ(nlsLanguage(), "de");
    setNlsLanguage("");
    EXPECT_EQ(nlsLanguage(), "fr");
}

TEST_F(NlsLibrary, PicksTheClosestTableForTheLanguage) {
    struct Case {
        const char* language;
        QStringList labTables;  // each holds its own name as text 17002
        QString expected;
    };
    const QString builtIn = "Zentrovar Sidekin";
    const Case cases[] = {
        {"de_DE", {"de_DE", "de"}, "de_DE"},
        {"de_DE", {"de"}, "de"},
        {"de_DE.UTF-8", {"de_DE"}, "de_DE"},
        {"de_CH", {"de_DE"}, builtIn},
        {"fr", {}, builtIn},
        {"fr", {"en"}, "en"},  // the lab's English wins over the built-in one
        {"en", {"en", "de"}, "en"},
        {"de", {"en", "de/"}, "en"},  // an unreadable table is passed over
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.language);
        TempFolder folder;
        for (const QString& table : c.labTables) {
            if (table.endsWith('/'))
                QDir(folder.path()).mkdir(table.chopped(1) + ".txt");
            else
                folder.write(table + ".txt", ("17002=" + table).toUtf8());
        }
        qputenv("SIDEKIN_TEXTS_DIR", folder.path().toUtf8());
        setNlsLanguage(c.language);
        EXPECT_EQ(NLSInit(0), 1);
        EXPECT_EQ(GetResourceString(17002), c.expected);
    }
}

TEST_F(NlsLibrary, ReadsTheTableFileFormat) {
    labTable("en",
             "\xEF\xBB\xBF"
             "17001=after the byte order mark\n"
             "# 17002=comment\r\n"
             "\n"
             "17003= lead and trail  \r\n"
             "17004=a\\nb\\tc\\\\d\n"
             "17005=C:\\Data\\q\\\n"
             "17006=a=b\n"
             "17007 =blank before the mark\n"
             " 17008=blank before the id\n"
             "x17009=not a number\n"
             "17010=first\n"
             "17010=second\n"
             "17011=\xC3\xBC\xC3\x9F \xE6\x97\xA5\xE6\x9C\xAC\n"
             "17012=no line end");
    setNlsLanguage("en");
    ASSERT_EQ(NLSInit(0), 1);
    const std::pair<int, QString> expected[] = {
        {17001, "after the byte order mark"},
        {17002, ""},
        {17003, " lead and trail  "},
        {17004, "a\nb\tc\\d"},
        {17005, "C:\\Data\\q\\"},
        {17006, "a=b"},
        {17007, ""},
        {17008, ""},
        {17009, ""},
        {17010, "second"},
        {17011, QString::fromUtf8("\xC3\xBC\xC3\x9F \xE6\x97\xA5\xE6\x9C\xAC")},
        {17012, "no line end"},
    };
    for (const auto& [id, text] : expected) EXPECT_EQ(GetResourceString(id), text) << id;
}

TEST_F(NlsLibrary, TextsAreCutFetchedAndFilledIn) {
    labTable("en", "17002=Hello world\n17003=" + QByteArray(150, 'x') +
                       "\n17004=" + QByteArray(151, 'y') +
                       "\n17215=Vial <NUMBER1> is not in <NUMBER2>..<NUMBER1>\n17216=plain");
    setNlsLanguage("en");
    ASSERT_EQ(NLSInit(0), 1);
    EXPECT_EQ(GetResourceString(17003), QString(150, 'x'));
    EXPECT_EQ(GetResourceString(17004), QString(150, 'y'));
    EXPECT_EQ(App.GlblNlsBuffer.size(), 150);
    QString buffer;
    EXPECT_EQ(LoadString(0, 17002, buffer, 5), "Hello");
    EXPECT_EQ(buffer, "Hello");
    buffer = QString(20, '#');
    EXPECT_EQ(LoadString(0, 17999, buffer, 20), "");
    EXPECT_EQ(buffer, "");
    EXPECT_EQ(ResourceWithTokens(17215, "<NUMBER1>", "9"), "Vial 9 is not in <NUMBER2>..9");
    EXPECT_EQ(ResourceWithTokens(17216, "<NUMBER1>", "9"), "plain");
    EXPECT_EQ(ResourceWithTokens(17216, "", "9"), "plain");
}

TEST_F(NlsLibrary, MissingTextsAreEmptyAndSilent) {
    EXPECT_EQ(GetResourceString(17002), "");  // before NLSInit
    setNlsLanguage("en");
    NLSInitialization();
    EXPECT_EQ(GetResourceString(99999), "");
    EXPECT_FALSE(GetResourceString(17002).isEmpty());
    resetNls();  // nothing is cached on the way
    EXPECT_EQ(GetResourceString(17002), "");
    EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(NlsLibrary, NoTableAtAllIsToldOnceAndLeavesTextsEmpty) {
    setNlsLanguage("en");
    ASSERT_EQ(NLSInit(0), 1);
    qputenv("SIDEKIN_TEXTS_DIR", lab.path().toUtf8());
    setNlsLanguage("xx");
    dropEmbeddedTables();
    NLSInitialization();
    const QString text = GetResourceString(17002);
    restoreEmbeddedTables();

    EXPECT_EQ(text, "");
    ASSERT_EQ(dialogs.shown.size(), 1u);
    EXPECT_EQ(dialogs.shown[0],
              (Shown{Shown::Box, BoxStyle::Critical, "Error in loading NLSLibraries", "Error"}));
}

}  // namespace
}  // namespace sidekin::test
