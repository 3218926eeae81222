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
        {"12abc", 12},  {" 1 6 1st", 161}, {"\t4\n2", 42}, {"abc", 0},
        {"-", 0},       {"+3", 3},         {".5", 0.5},    {"2D2", 200},
        {"5E-1", 0.5},  {"4e", 4},         {"1.2.3", 1.2}, {"&H1F", 31},
        {"&HFFFF", -1}, {"&O17", 15},      {"1,000", 1},   {"4294967296", 4294967296.0}};
    for (const auto& [text, value] : rows) EXPECT_DOUBLE_EQ(Val(text), value) << text;
}

TEST(ConversionsTest, StrictConversionAcceptsWholeNumbersOnly) {
    const std::pair<const char*, std::optional<double>> rows[] = {
        {"  42  ", 42}, {"-3.5", -3.5}, {"3.", 3},     {"1.5E2", 150}, {"&H10", 16},
        {"", {}},       {"   ", {}},    {"12abc", {}}, {"1 2", {}},    {".", {}},
        {"1e", {}},     {"--1", {}},    {"1,5", {}}};
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
    EXPECT_EQ(errorOf([] { CLng(2147483648.0); }), ErrOverflow);
    EXPECT_EQ(errorOf([] { CDbl(QStringLiteral("1e999")); }), ErrOverflow);
    EXPECT_EQ(sub16(-32767, 1), -32768);
    EXPECT_EQ(errorOf([] { add16(32767, 1); }), ErrOverflow);
    EXPECT_EQ(errorOf([] { sub16(-32768, 1); }), ErrOverflow);
    EXPECT_EQ(errorOf([] { toInt16(40000); }), ErrOverflow);
}

}  // namespace
