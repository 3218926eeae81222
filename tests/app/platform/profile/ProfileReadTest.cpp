#include <gtest/gtest.h>

#include "ProfileBytes.h"
#include "TempFolder.h"
#include "platform/ProfileFile.h"

using namespace sidekin;
using sidekin::test::TempFolder;

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

struct Encoded {
    const char* name;
    QByteArray bytes;
    QString section;
    QString key;
    QString expected;
};

class ProfileReadBytes : public testing::TestWithParam<Encoded> {};

TEST_P(ProfileReadBytes, ValueComesBack) {
    const Encoded& row = GetParam();
    TempFolder dir;
    QString buffer;
    GetPrivateProfileStringA(row.section, row.key, "DEFAULT", buffer, 256,
                             dir.write("a.ini", row.bytes));
    EXPECT_EQ(buffer, row.expected);
}

const QString kLong(100000, u'n');

INSTANTIATE_TEST_SUITE_P(
    Files, ProfileReadBytes,
    testing::Values(
        Encoded{"crlf", "[S]\r\na=1\r\n[T]\r\nc=3\r\n", "T", "c", "3"},
        Encoded{"loneCr", "[S]\ra=1\r[T]\rc=3\r", "T", "c", "3"},
        Encoded{"mixedLineEnds", "[S]\r\na=1\n\r[T]\rc=3", "T", "c", "3"},
        Encoded{"utf8MarkSkipped", "\xEF\xBB\xBF[S]\r\na=1\r\n", "S", "a", "1"},
        Encoded{"invalidUtf8IsCp1252", "[S]\n\xE9=\x80 \xC0\x81\n", "S", "\u00C9",
                "\u20AC \u00C0\u0081"},
        Encoded{"cp1252BehindUtf8Mark", "\xEF\xBB\xBF[S]\nk=caf\xE9\n", "S", "k", "caf\u00E9"},
        Encoded{"utf16WithMark", utf16File("[S]\r\nk=\u00D6l \u20AC\r\n"), "s", "K",
                "\u00D6l \u20AC"},
        Encoded{"utf16OddLastByteIgnored", utf16File("[S]\nk=v") + 'x', "S", "k", "v"},
        Encoded{"ctrlZEndsFile", "[S]\nk=v\x1A", "S", "k", "v"},
        Encoded{"ctrlZEndsUtf16File", utf16File("[S]\nk=v\x1A"), "S", "k", "v"},
        Encoded{"longNames", "[" + kLong.toUtf8() + "]\n" + kLong.toUtf8() + "=v\n", kLong, kLong,
                "v"},
        Encoded{"byteOrderMarkCharIsText", "[\xEF\xBB\xBFS]\n\xEF\xBB\xBFk=\xEF\xBB\xBFv\n",
                QStringLiteral("\uFEFFS"), QStringLiteral("\uFEFFk"), QStringLiteral("\uFEFFv")}),
    [](const auto& info) { return std::string(info.param.name); });

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
