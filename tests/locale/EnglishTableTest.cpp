// The English table built into the program, checked against what the program
// does with its texts.

#include <QSet>
#include <map>

#include "NlsFixture.h"
#include "platform/Conversions.h"

namespace sidekin::test {
namespace {

// The ids the program asks for.
QSet<int> usedIds() {
    const std::pair<int, int> ranges[] = {
        {17002, 17019}, {17025, 17034}, {17040, 17042}, {17044, 17048}, {17050, 17064},
        {17070, 17073}, {17080, 17084}, {17100, 17107}, {17120, 17121}, {17130, 17147},
        {17150, 17164}, {17170, 17171}, {17180, 17182}, {17200, 17231}, {17260, 17268},
        {17290, 17290}, {17300, 17324},
    };
    QSet<int> ids;
    for (auto [first, last] : ranges)
        for (int id = first; id <= last; ++id) ids.insert(id);
    return ids;
}

QStringList textsOf(std::initializer_list<std::pair<int, int>> ranges) {
    QStringList texts;
    for (auto [first, last] : ranges)
        for (int id = first; id <= last; ++id) texts << GetResourceString(id);
    return texts;
}

class EnglishTable : public NlsFixture {
protected:
    void SetUp() override {
        NlsFixture::SetUp();
        setNlsLanguage("en");
        ASSERT_EQ(NLSInit(0), 1);
    }
};

TEST_F(EnglishTable, HoldsATextForEachUsedIdAndNoOther) {
    const QSet<int> used = usedIds();
    ASSERT_EQ(used.size(), 175);
    // A mistyped id would show up as a text nobody asks for.
    for (int id = 0; id < 200000; ++id) EXPECT_EQ(!fullText(id).isEmpty(), used.contains(id)) << id;
}

TEST_F(EnglishTable, TextsFitTheSharedBuffer) {
    for (int id : usedIds()) EXPECT_LE(fullText(id).size(), 150) << id;
}

TEST_F(EnglishTable, TokensStandExactlyWhereTheyAreFilledIn) {
    const std::map<int, QStringList> tokens = {
        {17120, {"<NUMBER1>", "<NUMBER2>"}},
        {17204, {"<NAME>"}},
        {17215, {"<NUMBER1>", "<NUMBER2>"}},
        {17218, {"<NAME>"}},
        {17224, {"<NUMBER>"}},
        {17226, {"<NUMBER>"}},
        {17231, {"<NUMBER>"}},
    };
    for (int id : usedIds()) {
        const QString text = GetResourceString(id);
        const auto expected = tokens.find(id);
        for (const char* token : {"<NUMBER>", "<NUMBER1>", "<NUMBER2>", "<NAME>"}) {
            const bool wanted = expected != tokens.end() && expected->second.contains(token);
            EXPECT_EQ(text.contains(token), wanted) << id << " " << token;
        }
    }
}

TEST_F(EnglishTable, RunProgressTextsEndInABlankBeforeTheNumber) {
    for (int id : {17101, 17103, 17104, 17105, 17106, 17107}) {
        const QString text = GetResourceString(id);
        EXPECT_TRUE(text.endsWith(' ') && !text.trimmed().isEmpty()) << id;
    }
}

TEST_F(EnglishTable, TextsComparedWithEachOtherDiffer) {
    const std::vector<QStringList> groups = {
        textsOf({{17040, 17042}, {17044, 17048}}),  // vial entries and injection types
        textsOf({{17016, 17018}}),                  // Start, Pause, Resume
        textsOf({{17300, 17315}}),                  // status words
    };
    for (const QStringList& group : groups) {
        QStringList unique = group;
        unique.removeDuplicates();
        EXPECT_EQ(unique.size(), group.size()) << group.join(" / ").toStdString();
    }
    // The vial-zero and manual entries share a list with vial numbers.
    for (int id : {17040, 17041, 17042}) EXPECT_FALSE(IsNumeric(GetResourceString(id))) << id;
}

TEST_F(EnglishTable, EachSourceNameMatchesOnlyItself) {
    // A method's source is found by containment, injector first, then manual, then valve.
    const QStringList sources = textsOf({{17321, 17323}});
    for (qsizetype i = 0; i < sources.size(); ++i)
        for (qsizetype j = 0; j < sources.size(); ++j)
            if (i != j) {
                EXPECT_FALSE(sources[i].contains(sources[j])) << i << " contains " << j;
            }
}

TEST_F(EnglishTable, ColumnHeadersKeepTheGridToTenColumns) {
    for (const QString& header : textsOf({{17025, 17034}})) EXPECT_FALSE(header.contains('|'));
}

TEST_F(EnglishTable, SettingsReadAsNumbers) {
    for (int id : {17316, 17317, 17318, 17319}) {
        const QString text = GetResourceString(id);
        EXPECT_TRUE(IsNumeric(text)) << id;
        EXPECT_GT(Val(text), 0.0) << id;
    }
    const QString charset = GetResourceString(17320);
    EXPECT_TRUE(IsNumeric(charset));
    EXPECT_EQ(Val(charset), 0.0);  // the default character set
}

}  // namespace
}  // namespace sidekin::test
