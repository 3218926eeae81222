#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QStringList>
#include <optional>

#include "ErrorOf.h"
#include "platform/Clock.h"
#include "platform/Conversions.h"
#include "platform/DateFormats.h"
#include "platform/LegacyText.h"
#include "platform/OperatorDialogs.h"
#include "platform/RuntimeError.h"

using namespace sidekin;
using sidekin::test::errorOf;

namespace {

TEST(ConversionsTest, ValReadsTheNumericBeginning) {
    const std::pair<const char*, double> rows[] = {{"12abc", 12},    {" 1 6 1st", 161},
                                                   {"\t4\n2", 42},   {"abc", 0},
                                                   {"-", 0},         {"+3", 3},
                                                   {".5", 0.5},      {"2D2", 200},
                                                   {"5E-1", 0.5},    {"4e", 4},
                                                   {"1.2.3", 1.2},   {"&H1F", 31},
                                                   {"&HFFFF", -1},   {"&O17", 15},
                                                   {"1,000", 1},     {"4294967296", 4294967296.0},
                                                   {"&O177777", -1}, {"&O1777777", 524287}};
    for (const auto& [text, value] : rows) EXPECT_DOUBLE_EQ(Val(text), value) << text;
}

TEST(ConversionsTest, StrictConversionAcceptsWholeNumbersOnly) {
    const std::pair<const char*, std::optional<double>> rows[] = {
        {"  42  ", 42}, {"-3.5", -3.5}, {"3.", 3},     {"1.5E2", 150}, {"&H10", 16},
        {"", {}},       {"   ", {}},    {"12abc", {}}, {"1 2", {}},    {".", {}},
        {"1e", {}},     {"--1", {}},    {"1,5", {}},   {"1E2x", {}}};
    for (const auto& row : rows) {
        const auto& [text, value] = row;
        EXPECT_EQ(IsNumeric(text), value.has_value()) << text;
        if (value)
            EXPECT_DOUBLE_EQ(CDbl(text), *value) << text;
        else
            EXPECT_EQ(errorOf([&] { CDbl(row.first); }), ErrTypeMismatch) << text;
    }
}

TEST(ConversionsTest, HalvesRoundToTheEvenNeighbour) {
    const std::pair<double, int> rows[] = {{0.5, 0},   {1.5, 2},    {2.5, 2},   {-0.5, 0},
                                           {-2.5, -2}, {2.4999, 2}, {2.5001, 3}};
    for (auto [in, out] : rows) {
        EXPECT_EQ(CInt(in), out) << in;
        EXPECT_EQ(CLng(in), out) << in;
    }
}

TEST(ConversionsTest, SixteenAndThirtyTwoBitLimitsRaiseOverflow) {
    EXPECT_EQ(CInt(32767.0), 32767);
    EXPECT_EQ(CInt(-32768.5), -32768);  // rounds to the even -32768, inside
    EXPECT_EQ(errorOf([] { CInt(32767.5); }), ErrOverflow);
    EXPECT_EQ(errorOf([] { CInt(QStringLiteral("40000")); }), ErrOverflow);
    EXPECT_EQ(errorOf([] { CInt(QStringLiteral("x")); }), ErrTypeMismatch);
    EXPECT_EQ(CLng(-2147483648.0), -2147483647 - 1);
    EXPECT_EQ(CLng(2147483647.0), 2147483647);
    EXPECT_EQ(errorOf([] { CLng(2147483647.5); }), ErrOverflow);  // rounds to the even 2^31
    EXPECT_EQ(errorOf([] { CLng(2147483648.0); }), ErrOverflow);
    EXPECT_EQ(errorOf([] { CDbl(QStringLiteral("1e999")); }), ErrOverflow);
    EXPECT_EQ(sub16(-32767, 1), -32768);
    EXPECT_EQ(errorOf([] { add16(32767, 1); }), ErrOverflow);
    EXPECT_EQ(errorOf([] { sub16(-32768, 1); }), ErrOverflow);
    EXPECT_EQ(errorOf([] { toInt16(40000); }), ErrOverflow);
}

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

// The real seams, once each, against the real thing with a short limit.
TEST(RealSeams, ClockWaitsEndAtTheirLimitAndBoxesGetTheDefaultButton) {
    QElapsedTimer elapsed;
    elapsed.start();
    sidekin::clock().waitForEvents(0.05);  // nothing else to wake it: its limit does
    sidekin::clock().pause(0.05);
    EXPECT_GE(elapsed.elapsed(), 45);
    EXPECT_LT(elapsed.elapsed(), 5000);
    EXPECT_EQ(dialogs().messageBox(BoxStyle::ExclamationYesNo, "q", "t"), BoxAnswer::Yes);
    EXPECT_EQ(dialogs().messageBox(BoxStyle::ExclamationOk, "q", "t"), BoxAnswer::Ok);
    EXPECT_EQ(dialogs().inputBox("p", "t", "given"), "given");
}

}  // namespace
