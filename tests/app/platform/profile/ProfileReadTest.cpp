#include <gtest/gtest.h>

#include "platform/ProfileFile.h"

using namespace sidekin;

namespace {

const QString kFixtures = QStringLiteral(PROFILE_FIXTURES "/");

struct Read {
    const char* name;
    const char* section;
    const char* key;
    const char* expected;  // "DEFAULT" when the default must come back
};

class ProfileRead : public testing::TestWithParam<Read> {};

TEST_P(ProfileRead, Layout) {
    const Read& row = GetParam();
    QString buffer = QStringLiteral("garbage");
    const int count =
        GetPrivateProfileStringA(QString::fromUtf8(row.section), QString::fromUtf8(row.key),
                                 "DEFAULT", buffer, 256, kFixtures + "layout.ini");
    EXPECT_EQ(buffer, QString::fromUtf8(row.expected));
    EXPECT_EQ(count, buffer.size());
}

INSTANTIATE_TEST_SUITE_P(
    Fixture, ProfileRead,
    testing::Values(Read{"blanksTrimmed", "Blanks", "padded", "value with blanks"},
                    Read{"tabsTrimmed", "Blanks", "tabbed", "tab value"},
                    Read{"emptyValueIsNoDefault", "Blanks", "empty", ""},
                    Read{"blanksOnlyValueIsEmpty", "Blanks", "blankonly", ""},
                    Read{"lineWithoutEqualsIsNoKey", "Blanks", "no equals sign here", "DEFAULT"},
                    Read{"keyWithInnerBlank", "Blanks", "spaced key", "x"},
                    Read{"requestedNamesTrimmed", " Blanks\t", "  padded ", "value with blanks"},
                    Read{"headerNameTrimmed", "quotes", "single", "single"},
                    Read{"doubleQuotesKeepInnerBlanks", "Quotes", "double", "  inner blanks  "},
                    Read{"mismatchedQuotesStay", "Quotes", "mismatched", "\"open'"},
                    Read{"unbalancedQuoteStays", "Quotes", "unbalanced", "\"open"},
                    Read{"loneQuoteStays", "Quotes", "lonequote", "\""},
                    Read{"emptyQuotesAreEmpty", "Quotes", "emptyquotes", ""},
                    Read{"commentHidesKey", "Comments", "hidden", "DEFAULT"},
                    Read{"indentedComment", "Comments", "indented", "DEFAULT"},
                    Read{"semicolonInValueIsData", "Comments", "semi", "a;b ; still value"},
                    Read{"hashLineIsKey", "Comments", "#hash", "3"},
                    Read{"slashLineIsKey", "Comments", "//slashes", "4"},
                    Read{"firstDuplicateWins", "DUPES", "first", "one"},
                    Read{"repeatedSectionUnreachable", "Dupes", "late", "DEFAULT"},
                    Read{"orphanKeyInNoSection", "", "orphan", "DEFAULT"},
                    Read{"textBehindHeaderIgnored", "Odd", "x", "in odd"},
                    Read{"unclosedIsNoHeader", "odd", "z", "still odd"},
                    Read{"nameRunsToLastBracket", "a]b", "y", "in a]b"},
                    Read{"caseBlindBeyondAscii", "öL", "NAME", "Jürgen Ölmann"},
                    Read{"missingSection", "Nowhere", "x", "DEFAULT"},
                    Read{"missingKey", "Odd", "nothing", "DEFAULT"}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(ProfileReadDefaults, TrailingBlanksGoLeadingStay) {
    QString buffer;
    EXPECT_EQ(GetPrivateProfileStringA("S", "k", "  abc   ", buffer, 256, kFixtures + "none.ini"),
              5);
    EXPECT_EQ(buffer, "  abc");
    EXPECT_EQ(GetPrivateProfileStringA("S", "k", "", buffer, 256, QString()), 0);
    EXPECT_EQ(buffer, "");
}

TEST(ProfileReadLength, BufferHoldsSizeMinusOne) {
    const QString digits = QString("0123456789").repeated(30);
    const struct {
        int size;
        int expected;
    } rows[] = {{256, 255}, {10, 9}, {1, 0}, {0, 0}, {400, 300}};
    for (const auto& row : rows) {
        QString buffer;
        EXPECT_EQ(
            GetPrivateProfileStringA("long", "value", "", buffer, row.size, kFixtures + "long.ini"),
            row.expected)
            << "size " << row.size;
        EXPECT_EQ(buffer, digits.left(row.expected)) << "size " << row.size;
    }
    QString buffer;
    EXPECT_EQ(
        GetPrivateProfileStringA("Long", "missing", digits, buffer, 256, kFixtures + "long.ini"),
        255);
}

TEST(ProfileReadLineEnds, EveryStyleReads) {
    for (const char* file : {"crlf.ini", "lf.ini", "cr.ini", "mixed.ini", "bom.ini"}) {
        const QString path = kFixtures + file;
        EXPECT_EQ(profileSections(path), QStringList({"S", "T"})) << file;
        EXPECT_EQ(profileKeys("s", path), QStringList({"a", "b"})) << file;
        QString a, b, c;
        GetPrivateProfileStringA("S", "a", "?", a, 256, path);
        GetPrivateProfileStringA("S", "b", "?", b, 256, path);
        GetPrivateProfileStringA("T", "c", "?", c, 256, path);
        EXPECT_EQ(a + b + c, "123") << file;
    }
}

TEST(ProfileReadInt, LeadingNumber) {
    const QString path = kFixtures + "layout.ini";
    const struct {
        const char* key;
        int expected;
    } rows[] = {{"plain", 42}, {"suffix", 12}, {"neg", -15},  {"plus", 8},
                {"text", 0},   {"quoted", 7},  {"blank", 99}, {"missing", 99}};
    for (const auto& row : rows)
        EXPECT_EQ(int(GetPrivateProfileIntA("Numbers", row.key, 99, path)), row.expected)
            << row.key;
}

TEST(ProfileList, SectionsOnceInFileOrderAndKeysOfFirstSection) {
    const QString path = kFixtures + "layout.ini";
    EXPECT_EQ(profileSections(path), QStringList({"Blanks", "Quotes", "Comments", "Dupes", "Odd",
                                                  "a]b", "Öl", "Numbers"}));
    EXPECT_EQ(profileKeys("dupes", path), QStringList({"first"}));
    EXPECT_EQ(profileKeys(" Blanks ", path),
              QStringList({"padded", "tabbed", "empty", "blankonly", "spaced key"}));
    EXPECT_EQ(profileKeys("Nowhere", path), QStringList());
}

}  // namespace
