#include <gtest/gtest.h>

#include <optional>

#include "ErrorOf.h"
#include "platform/Conversions.h"
#include "platform/RuntimeError.h"

using namespace sidekin;
using sidekin::test::errorOf;

namespace {

struct ValCase {
    const char* name;
    const char* text;
    double expected;
};

class ValTest : public ::testing::TestWithParam<ValCase> {};

TEST_P(ValTest, ReadsTheNumericBeginning) {
    EXPECT_DOUBLE_EQ(Val(QString::fromUtf8(GetParam().text)), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ValTest,
    ::testing::Values(ValCase{"plain", "12", 12}, ValCase{"trailingText", "12abc", 12},
                      ValCase{"leadingBlanks", "   7", 7},
                      ValCase{"blanksInside", " 1 6 15 198th Street", 1615198},
                      ValCase{"tabsAndLineFeeds", "\t4\n2", 42}, ValCase{"empty", "", 0},
                      ValCase{"noNumber", "abc", 0}, ValCase{"minusOnly", "-", 0},
                      ValCase{"negative", "-1", -1}, ValCase{"plusSign", "+3", 3},
                      ValCase{"fraction", "2.75x", 2.75}, ValCase{"leadingPoint", ".5", 0.5},
                      ValCase{"exponent", "1e3", 1000}, ValCase{"exponentD", "2D2", 200},
                      ValCase{"negativeExponent", "5E-1", 0.5},
                      ValCase{"danglingExponent", "4e", 4}, ValCase{"secondPoint", "1.2.3", 1.2},
                      ValCase{"hex", "&H1F", 31}, ValCase{"hexSixteenBit", "&HFFFF", -1},
                      ValCase{"octal", "&O17", 15},
                      ValCase{"bigNumber", "4294967296", 4294967296.0},
                      ValCase{"commaStops", "1,000", 1}),
    [](const auto& info) { return std::string(info.param.name); });

struct StrictCase {
    const char* name;
    const char* text;
    std::optional<double> dbl;  // nullopt: error 13
};

class StrictTest : public ::testing::TestWithParam<StrictCase> {};

TEST_P(StrictTest, AcceptsWholeNumbersOnly) {
    const StrictCase& c = GetParam();
    const QString text = QString::fromUtf8(c.text);
    if (c.dbl) {
        EXPECT_DOUBLE_EQ(CDbl(text), *c.dbl);
        EXPECT_TRUE(IsNumeric(text));
    } else {
        try {
            CDbl(text);
            FAIL() << "no error for " << c.text;
        } catch (const RuntimeError& e) {
            EXPECT_EQ(e.number(), ErrTypeMismatch);
        }
        EXPECT_FALSE(IsNumeric(text));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Cases, StrictTest,
    ::testing::Values(
        StrictCase{"integer", "42", 42}, StrictCase{"surroundingBlanks", "  42  ", 42},
        StrictCase{"negative", "-3.5", -3.5}, StrictCase{"plus", "+7", 7},
        StrictCase{"pointFirst", ".25", 0.25}, StrictCase{"pointLast", "3.", 3},
        StrictCase{"exponent", "1.5E2", 150}, StrictCase{"exponentSign", "2e-2", 0.02},
        StrictCase{"hex", "&H10", 16}, StrictCase{"empty", "", std::nullopt},
        StrictCase{"blank", "   ", std::nullopt}, StrictCase{"trailingText", "12abc", std::nullopt},
        StrictCase{"blankInside", "1 2", std::nullopt},
        StrictCase{"twoPoints", "1.2.3", std::nullopt}, StrictCase{"pointOnly", ".", std::nullopt},
        StrictCase{"signOnly", "-", std::nullopt},
        StrictCase{"exponentWithoutDigits", "1e", std::nullopt},
        StrictCase{"doubleSign", "--1", std::nullopt}, StrictCase{"comma", "1,5", std::nullopt}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(RoundingTest, HalvesGoToTheEvenNeighbour) {
    struct {
        double in;
        int out;
    } cases[] = {{0.5, 0},   {1.5, 2},   {2.5, 2},    {3.5, 4},   {-0.5, 0},
                 {-1.5, -2}, {-2.5, -2}, {2.4999, 2}, {2.5001, 3}};
    for (auto c : cases) {
        EXPECT_EQ(CInt(c.in), c.out) << c.in;
        EXPECT_EQ(CLng(c.in), c.out) << c.in;
    }
    EXPECT_EQ(CInt(QStringLiteral("2.5")), 2);
    EXPECT_EQ(CInt(QStringLiteral("3.5")), 4);
}

TEST(RangeTest, SixteenAndThirtyTwoBitLimits) {
    EXPECT_EQ(CInt(32767.0), 32767);
    EXPECT_EQ(CInt(-32768.0), -32768);
    EXPECT_EQ(CInt(-32768.5), -32768);  // rounds to the even -32768, inside
    EXPECT_EQ(errorOf([] { CInt(32767.5); }), ErrOverflow);
    EXPECT_EQ(errorOf([] { CInt(-32769.0); }), ErrOverflow);
    EXPECT_EQ(errorOf([] { CInt(QStringLiteral("40000")); }), ErrOverflow);
    EXPECT_EQ(errorOf([] { CInt(QStringLiteral("x")); }), ErrTypeMismatch);
    EXPECT_EQ(CLng(2147483647.0), 2147483647);
    EXPECT_EQ(CLng(-2147483648.0), -2147483647 - 1);
    EXPECT_EQ(errorOf([] { CLng(2147483648.0); }), ErrOverflow);
    EXPECT_EQ(errorOf([] { CLng(QStringLiteral("1e10")); }), ErrOverflow);
    EXPECT_EQ(errorOf([] { CDbl(QStringLiteral("1e999")); }), ErrOverflow);
}

TEST(Int16ArithmeticTest, OverflowRaisesErrorSix) {
    EXPECT_EQ(add16(32766, 1), 32767);
    EXPECT_EQ(sub16(-32767, 1), -32768);
    EXPECT_EQ(errorOf([] { add16(32767, 1); }), ErrOverflow);
    EXPECT_EQ(errorOf([] { sub16(-32768, 1); }), ErrOverflow);
    EXPECT_EQ(errorOf([] { toInt16(40000); }), ErrOverflow);
}

}  // namespace
