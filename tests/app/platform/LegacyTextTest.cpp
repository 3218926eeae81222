#include <gtest/gtest.h>

#include "ErrorOf.h"
#include "platform/LegacyText.h"
#include "platform/RuntimeError.h"

using namespace sidekin;
using sidekin::test::errorOf;

namespace {

const QString abc = QStringLiteral("abcdef");

TEST(LegacyTextTest, PositionsAreOneBasedAndForgiving) {
    EXPECT_EQ(Left(abc, 2), "ab");
    EXPECT_EQ(Left(abc, 99), abc);
    EXPECT_EQ(Right(abc, 2), "ef");
    EXPECT_EQ(Mid(abc, 2, 3), "bcd");
    EXPECT_EQ(Mid(abc, 5), "ef");
    EXPECT_EQ(Mid(abc, 7), "");
    EXPECT_EQ(Mid(abc, 9, 2), "");
    EXPECT_EQ(Mid(abc, 2, 0), "");
    EXPECT_EQ(InStr(abc, "cd"), 3);
    EXPECT_EQ(InStr(abc, "CD"), 0);  // case matters
    EXPECT_EQ(InStr(4, abc, "c"), 0);
    EXPECT_EQ(InStr(3, abc, "c"), 3);
    EXPECT_EQ(InStr(7, abc, "a"), 0);
    EXPECT_EQ(InStr(abc, ""), 1);
    EXPECT_EQ(InStr(QString(), ""), 0);
    for (auto call : {+[] { Left(abc, -1); }, +[] { Right(abc, -1); }, +[] { Mid(abc, 2, -1); },
                      +[] { Mid(abc, 0); }, +[] { InStr(0, abc, "a"); }})
        EXPECT_EQ(errorOf(call), ErrInvalidCall);
}

TEST(LegacyTextTest, TrimTakesOnlySpacesAndBuffersEndAtTheFirstNul) {
    EXPECT_EQ(Trim("  a b  "), "a b");
    EXPECT_EQ(Trim("\ta\t"), "\ta\t");
    EXPECT_EQ(LTrim("  a "), "a ");
    EXPECT_EQ(RTrim("  a "), "  a");
    EXPECT_EQ(UpToNul(QStringLiteral("abc") + QChar(u'\0') + QStringLiteral("  x")), "abc");
    EXPECT_EQ(UpToNul("abc"), "abc");
}

TEST(LegacyTextTest, NumbersInLegacyForms) {
    const struct {
        double value;
        const char* str;
    } rows[] = {{5, " 5"},         {0, " 0"},         {-5, "-5"},       {2.5, " 2.5"},
                {0.5, " .5"},      {-0.25, "-.25"},   {1e15, " 1E+15"}, {1e-5, " 1E-05"},
                {32767, " 32767"}, {0.0001, " .0001"}};
    for (auto row : rows) {
        EXPECT_EQ(Str(row.value), QString::fromLatin1(row.str)) << row.value;
        EXPECT_EQ(CStr(row.value), QString::fromLatin1(row.str).trimmed()) << row.value;
    }
    EXPECT_EQ(FormatZeros(7, "000"), "007");
    EXPECT_EQ(FormatZeros(1234, "00"), "1234");
    EXPECT_EQ(FormatZeros(-7, "000"), "-007");
    EXPECT_EQ(FormatZeros(5, ""), "5");
}

}  // namespace
