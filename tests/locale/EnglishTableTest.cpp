// The English table built into the program, checked against what the program
// does with its texts.

#include <QSet>

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

// Each id the program asks for has a text that fits the shared buffer and holds
// exactly the tokens filled in there; a mistyped id shows as a text nobody asks for.
TEST_F(EnglishTable, EachUsedIdHasAFittingTextWithItsTokens) {
    const std::pair<int, int> used[] = {
        {17002, 17019}, {17025, 17034}, {17040, 17042}, {17044, 17048}, {17050, 17064},
        {17070, 17073}, {17080, 17084}, {17100, 17107}, {17120, 17121}, {17130, 17147},
        {17150, 17164}, {17170, 17171}, {17180, 17182}, {17200, 17231}, {17260, 17268},
        {17290, 17290}, {17300, 17325},
    };
    const std::pair<const char*, QList<int>> holders[] = {{"<NUMBER>", {17224, 17226, 17231}},
                                                          {"<NUMBER1>", {17120, 17215}},
                                                          {"<NUMBER2>", {17120, 17215}},
                                                          {"<NAME>", {17204, 17218}},
                                                          {"<TIME>", {17325}}};
    QSet<int> ids;
    for (auto [first, last] : used)
        for (int id = first; id <= last; ++id) ids.insert(id);
    for (int id = 0; id < 200000; ++id) {
        const QString text = fullText(id);
        EXPECT_EQ(!text.isEmpty(), ids.contains(id)) << id;
        EXPECT_LE(text.size(), 150) << id;
        for (const auto& [token, holding] : holders)
            EXPECT_EQ(text.contains(token), holding.contains(id)) << id << " " << token;
    }
}

TEST_F(EnglishTable, TextsTheProgramComparesOrReads) {
    for (int id : {17101, 17103, 17104, 17105, 17106, 17107})  // a number follows
        EXPECT_TRUE(GetResourceString(id).endsWith(' ')) << id;
    // Vial entries and injection types, Start/Pause/Resume and the status words differ.
    for (QStringList group : {textsOf(17040, 17048), textsOf(17016, 17018), textsOf(17300, 17315)})
        EXPECT_EQ(group.removeDuplicates(), 0) << group.join(" / ").toStdString();
    for (int id : {17040, 17041, 17042}) EXPECT_FALSE(IsNumeric(GetResourceString(id))) << id;
    // A method's source is found by containment, so no source name holds another.
    const QStringList sources = textsOf(17321, 17323);
    for (const QString& a : sources)
        for (const QString& b : sources) EXPECT_TRUE(&a == &b || !a.contains(b));
    for (const QString& header : textsOf(17025, 17034)) EXPECT_FALSE(header.contains('|'));
    for (int id : {17316, 17317, 17318, 17319}) EXPECT_GT(CDbl(GetResourceString(id)), 0.0) << id;
    EXPECT_EQ(CDbl(GetResourceString(17320)), 0.0);  // the default character set
}

}  // namespace
}  // namespace sidekin::test
