#include <gtest/gtest.h>

#include "ProfileBytes.h"
#include "TempFolder.h"
#include "platform/ProfileFile.h"

using namespace sidekin;
using sidekin::test::TempFolder;

namespace {

const QString kFixtures = QStringLiteral(PROFILE_FIXTURES "/");

// Each key of the layout file as the reader finds it; "DEFAULT" where the default comes back.
TEST(ProfileRead, Layout) {
    const std::tuple<const char*, const char*, const char*, const char*> rows[] = {
        {"blanksTrimmed", "Blanks", "padded", "value with blanks"},
        {"tabsTrimmed", "Blanks", "tabbed", "tab value"},
        {"emptyValueIsNoDefault", "Blanks", "empty", ""},
        {"blanksOnlyValueIsEmpty", "Blanks", "blankonly", ""},
        {"lineWithoutEqualsIsNoKey", "Blanks", "no equals sign here", "DEFAULT"},
        {"keyWithInnerBlank", "Blanks", "spaced key", "x"},
        {"headerNameTrimmed", "quotes", "single", "single"},
        {"doubleQuotesKeepInnerBlanks", "Quotes", "double", "  inner blanks  "},
        {"mismatchedQuotesStay", "Quotes", "mismatched", "\"open'"},
        {"loneQuoteStays", "Quotes", "lonequote", "\""},
        {"emptyQuotesAreEmpty", "Quotes", "emptyquotes", ""},
        {"commentHidesKey", "Comments", "hidden", "DEFAULT"},
        {"indentedComment", "Comments", "indented", "DEFAULT"},
        {"semicolonInValueIsData", "Comments", "semi", "a;b ; still value"},
        {"hashLineIsKey", "Comments", "#hash", "3"},
        {"slashLineIsKey", "Comments", "//slashes", "4"},
        {"firstDuplicateWins", "DUPES", "first", "one"},
        {"repeatedSectionUnreachable", "Dupes", "late", "DEFAULT"},
        {"orphanKeyInNoSection", "", "orphan", "DEFAULT"},
        {"textBehindHeaderIgnored", "Odd", "x", "in odd"},
        {"unclosedIsNoHeader", "odd", "z", "still odd"},
        {"nameRunsToLastBracket", "a]b", "y", "in a]b"},
        {"caseBlindBeyondAscii", "öL", "NAME", "Jürgen Ölmann"},
        {"missingSection", "Nowhere", "x", "DEFAULT"},
        {"missingKey", "Odd", "nothing", "DEFAULT"},
    };
    for (const auto& [name, section, key, expected] : rows) {
        QString buffer = QStringLiteral("garbage");
        const int count =
            GetPrivateProfileStringA(QString::fromUtf8(section), QString::fromUtf8(key), "DEFAULT",
                                     buffer, 256, kFixtures + "layout.ini");
        EXPECT_EQ(buffer, QString::fromUtf8(expected)) << name;
        EXPECT_EQ(count, buffer.size()) << name;
    }
}

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
    const QString file = kFixtures + "long.ini";
    for (auto [size, expected] : {std::pair{256, 255}, {10, 9}, {1, 0}, {0, 0}, {400, 300}}) {
        QString buffer;
        EXPECT_EQ(GetPrivateProfileStringA("long", "value", "", buffer, size, file), expected)
            << size;
        EXPECT_EQ(buffer, digits.left(expected)) << size;
    }
    QString buffer;
    EXPECT_EQ(GetPrivateProfileStringA("Long", "missing", digits, buffer, 256, file), 255);
}

TEST(ProfileRead, EncodingsAndLineEnds) {
    const QString longName(100000, u'n');
    const struct {
        const char* name;
        QByteArray bytes;
        QString section, key, expected;
    } rows[] = {
        // clang-format off
        {"loneCr", "[S]\ra=1\r[T]\rc=3\r", "T", "c", "3"},
        {"mixedLineEnds", "[S]\r\na=1\n\r[T]\rc=3", "T", "c", "3"},
        {"invalidUtf8IsCp1252", "[S]\n\xE9=\x80 \xC0\x81\n", "S", "\u00C9", "\u20AC \u00C0\u0081"},
        {"cp1252BehindUtf8Mark", "\xEF\xBB\xBF[S]\nk=caf\xE9\n", "S", "k", "caf\u00E9"},
        {"utf16WithMark", utf16File("[S]\r\nk=\u00D6l \u20AC\r\n"), "s", "K", "\u00D6l \u20AC"},
        {"utf16OddLastByteIgnored", utf16File("[S]\nk=v") + 'x', "S", "k", "v"},
        {"ctrlZEndsFile", "[S]\nk=v\x1A", "S", "k", "v"},
        {"ctrlZEndsUtf16File", utf16File("[S]\nk=v\x1A"), "S", "k", "v"},
        {"longNames", "[" + longName.toUtf8() + "]\n" + longName.toUtf8() + "=v\n", longName, longName, "v"},
        {"byteOrderMarkCharIsText", "[\xEF\xBB\xBFS]\n\xEF\xBB\xBFk=\xEF\xBB\xBFv\n", QStringLiteral("\uFEFFS"), QStringLiteral("\uFEFFk"), QStringLiteral("\uFEFFv")},
        // clang-format on
    };
    for (const auto& row : rows) {
        TempFolder dir;
        QString buffer;
        GetPrivateProfileStringA(row.section, row.key, "DEFAULT", buffer, 256,
                                 dir.write("a.ini", row.bytes));
        EXPECT_EQ(buffer, row.expected) << row.name;
    }
}

TEST(ProfileReadInt, LeadingNumber) {
    const std::pair<const char*, int> rows[] = {{"plain", 42}, {"suffix", 12}, {"neg", -15},
                                                {"plus", 8},   {"text", 0},    {"quoted", 7},
                                                {"blank", 99}, {"missing", 99}};
    for (auto [key, expected] : rows)
        EXPECT_EQ(int(GetPrivateProfileIntA("Numbers", key, 99, kFixtures + "layout.ini")),
                  expected)
            << key;
}

}  // namespace
