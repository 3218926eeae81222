// The English table built into the program, checked against what the program
// does with its texts, and the other built-in tables against the English one.

#include <QDir>
#include <QMap>
#include <QRegularExpression>

#include "G11n.h"
#include "Nls.h"
#include "StartupFixture.h"
#include "platform/Conversions.h"

namespace sidekin::test {
namespace {

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
