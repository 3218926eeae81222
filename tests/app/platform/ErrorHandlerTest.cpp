#include <gtest/gtest.h>

#include "ScriptedDialogs.h"
#include "platform/Conversions.h"
#include "platform/ErrorHandler.h"

using namespace sidekin;

namespace {

// A function in the legacy shape: its result holds what it had when the error struck.
int halfParsed(const QString& first, const QString& second, int& reached) {
    int result = 0;
    handled("halfParsed", [&] {
        result = CInt(first);
        reached = 1;
        result += CInt(second);
        reached = 2;
    });
    return result;
}

TEST(ErrorHandlerTest, ErrorStopsTheBodyAndShowsAPlainBoxUnderTheTitle) {
    test::ScriptedDialogs dialogs;
    int reached = 0;
    EXPECT_EQ(halfParsed("4", "x", reached), 4);
    EXPECT_EQ(reached, 1);
    ASSERT_EQ(dialogs.shown.size(), 1u);
    EXPECT_EQ(dialogs.shown[0],
              (test::Shown{test::Shown::Box, BoxStyle::Plain, "Type mismatch", "halfParsed"}));
}

TEST(ErrorHandlerTest, NoErrorNoBox) {
    test::ScriptedDialogs dialogs;
    int reached = 0;
    EXPECT_EQ(halfParsed("4", "5", reached), 9);
    EXPECT_EQ(reached, 2);
    EXPECT_TRUE(dialogs.shown.empty());
}

TEST(ErrorHandlerTest, DescriptionsOfTheKnownNumbers) {
    EXPECT_EQ(errorDescription(5), "Invalid procedure call or argument");
    EXPECT_EQ(errorDescription(6), "Overflow");
    EXPECT_EQ(errorDescription(9), "Subscript out of range");
    EXPECT_EQ(errorDescription(13), "Type mismatch");
    registerErrorDescription(286, "Timeout while waiting for DDE response");
    EXPECT_EQ(RuntimeError(286).description(), "Timeout while waiting for DDE response");
}

}  // namespace
