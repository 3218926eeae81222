#include <gtest/gtest.h>

#include <optional>

#include "ErrorOf.h"
#include "platform/Conversions.h"
#include "platform/RuntimeError.h"

using namespace sidekin;
using sidekin::test::errorOf;

namespace {

TEST(ConversionsTest, ValReadsTheNumericBeginning) {
    const std::pair<const char*, double> rows[] = {
        {"12abc", 12},
        {"   7", 7},
        {" 1 6 15 198th Street", 1615198},
        {"\t4\n2", 42},
        {"", 0},
        {"abc", 0},
        {"-", 0},
        {"-1", -1},
        {"+3", 3},
        {"2.75x", 2.75},
        {".5", 0.5},
        {"1e3", 1000},
        {"2D2", 200},
        {"5E-1", 0.5},
        {"4e", 4},
        {"1.2.3", 1.2},
        {"&H1F", 31},
        {"&HFFFF", -1},
        {"&O17", 15},
        {"4294967296", 4294967296.0},
        {"1,000", 1},
    };
    for (const auto& [text, value] : rows) EXPECT_DOUBLE_EQ(Val(text), value) << text;
}

TEST(ConversionsTest, StrictConversionAcceptsWholeNumbersOnly) {
    const std::pair<const char*, std::optional<double>> rows[] = {
        {"  42  ", 42}, {"-3.5", -3.5}, {"+7", 7}, {".25", 0.25}, {"3.", 3},     {"1.5E2", 150},
        {"2e-2", 0.02}, {"&H10", 16},   {"", {}},  {"   ", {}},   {"12abc", {}}, {"1 2", {}},
        {"1.2.3", {}},  {".", {}},      {"-", {}}, {"1e", {}},    {"--1", {}},   {"1,5", {}},
    };
    for (const auto& [text, value] : rows) {
        EXPECT_EQ(IsNumeric(text), value.has_value()) << text;
        if (value)
            EXPECT_DOUBLE_EQ(CDbl(text), *value) << text;
        else
            EXPECT_EQ(errorOf([&] { CDbl(text); }), ErrTypeMismatch) << text;
    }
}

TEST(ConversionsTest, HalvesRoundToTheEvenNeighbour) {
    const std::pair<double, int> rows[] = {{0.5, 0},   {1.5, 2},    {2.5, 2},
                                           {3.5, 4},   {-0.5, 0},   {-1.5, -2},
                                           {-2.5, -2}, {2.4999, 2}, {2.5001, 3}};
    for (auto [in, out] : rows) {
        EXPECT_EQ(CInt(in), out) << in;
        EXPECT_EQ(CLng(in), out) << in;
    }
    EXPECT_EQ(CInt(QStringLiteral("2.5")), 2);
    EXPECT_EQ(CInt(QStringLiteral("3.5")), 4);
}

TEST(ConversionsTest, SixteenAndThirtyTwoBitLimitsRaiseOverflow) {
    EXPECT_EQ(CInt(32767.0), 32767);
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
    EXPECT_EQ(add16(32766, 1), 32767);
    EXPECT_EQ(sub16(-32767, 1), -32768);
    EXPECT_EQ(errorOf([] { add16(32767, 1); }), ErrOverflow);
    EXPECT_EQ(errorOf([] { sub16(-32768, 1); }), ErrOverflow);
    EXPECT_EQ(errorOf([] { toInt16(40000); }), ErrOverflow);
}

}  // namespace
