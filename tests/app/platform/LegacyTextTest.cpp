#include <gtest/gtest.h>

#include <QStringList>

#include "ErrorOf.h"
#include "platform/DateFormats.h"
#include "platform/LegacyText.h"
#include "platform/RuntimeError.h"

using namespace sidekin;
using sidekin::test::errorOf;

namespace {

const QString abc = QStringLiteral("abcdef");

TEST(LegacyTextTest, PositionsAreOneBasedAndForgiving) {
    EXPECT_EQ((QStringList{Left(abc, 2), Right(abc, 2), Mid(abc, 2, 3), Mid(abc, 5), Mid(abc, 7),
                           Mid(abc, 2, 0)}),
              (QStringList{"ab", "ef", "bcd", "ef", "", ""}));
    // Case matters; an empty text is found at the start of any but an empty one.
    EXPECT_EQ((std::vector<int>{InStr(abc, "cd"), InStr(abc, "CD"), InStr(4, abc, "c"),
                                InStr(7, abc, "a"), InStr(abc, ""), InStr(QString(), "")}),
              (std::vector<int>{3, 0, 0, 0, 1, 0}));
    for (auto call : {+[] { Left(abc, -1); }, +[] { Right(abc, -1); }, +[] { Mid(abc, 2, -1); },
                      +[] { Mid(abc, 0); }, +[] { InStr(0, abc, "a"); }})
        EXPECT_EQ(errorOf(call), ErrInvalidCall);
}

TEST(LegacyTextTest, TrimTakesOnlySpacesAndBuffersEndAtTheFirstNul) {
    EXPECT_EQ(Trim("  a b  "), "a b");
    EXPECT_EQ(Trim("\ta\t"), "\ta\t");
    EXPECT_EQ(LTrim("  a ") + RTrim("  a "), "a   a");
    EXPECT_EQ(UpToNul(QStringLiteral("abc") + QChar(u'\0') + QStringLiteral("  x")), "abc");
}

TEST(LegacyTextTest, NumbersInLegacyForms) {
    const std::pair<double, const char*> rows[] = {
        {5, " 5"},       {0, " 0"},        {-5, "-5"},       {2.5, " 2.5"},     {0.5, " .5"},
        {-0.25, "-.25"}, {1e15, " 1E+15"}, {1e-5, " 1E-05"}, {32767, " 32767"}, {0.0001, " .0001"}};
    for (auto [value, text] : rows) {
        EXPECT_EQ(Str(value), QString::fromLatin1(text)) << value;
        EXPECT_EQ(CStr(value), QString::fromLatin1(text).trimmed()) << value;
    }
    EXPECT_EQ(FormatZeros(7, "000"), "007");
    EXPECT_EQ(FormatZeros(1234, "00"), "1234");
    EXPECT_EQ(FormatZeros(-7, "000"), "-007");
    EXPECT_EQ(FormatZeros(INT64_MIN, "0"), "-9223372036854775808");
}

// The sub folder names try the date formats on two-digit months and days.
TEST(DateFormatsTest, EachKnownFormat) {
    const QDateTime moment(QDate(2024, 11, 22), QTime(15, 4, 5));
    EXPECT_EQ(FormatDate(QDateTime(QDate(2026, 3, 5), QTime()), "mmdd"), "0305");
    EXPECT_EQ(FormatDate(QDateTime(QDate(2026, 2, 1), QTime()), "y"), "32");  // day of the year
    const QString date = FormatDate(moment, "dddddd");
    EXPECT_TRUE(date.contains("2024") && date.contains("22")) << date.toStdString();
    const QString time = FormatDate(moment, "ttttt");
    EXPECT_TRUE(time.contains("04") && time.contains("05")) << time.toStdString();
    EXPECT_EQ(errorOf([&] { FormatDate(moment, "dd.mm"); }), ErrInvalidCall);
}

}  // namespace
