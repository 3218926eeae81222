#include <gtest/gtest.h>

#include "ScriptedDialogs.h"
#include "platform/Conversions.h"
#include "platform/ErrorHandler.h"

using namespace sidekin;

namespace {

// A function in the legacy shape: its result holds what it had when the error struck.
int halfParsed(const QString& first, const QString& second) {
    int result = 0;
    handled("halfParsed", [&] {
        result = CInt(first);
        result += CInt(second);
    });
    return result;
}

TEST(ErrorHandlerTest, ErrorStopsTheBodyAndShowsAPlainBoxUnderTheTitle) {
    test::ScriptedDialogs dialogs;
    EXPECT_EQ(halfParsed("4", "5"), 9);
    EXPECT_EQ(halfParsed("4", "x"), 4);
    EXPECT_EQ(dialogs.shown, (std::vector<test::Shown>{{test::Shown::Box, BoxStyle::Plain,
                                                        "Type mismatch", "halfParsed"}}));
    EXPECT_EQ(errorDescription(9), "Subscript out of range");
    registerErrorDescription(286, "Timeout while waiting for DDE response");
    EXPECT_EQ(RuntimeError(286).description(), "Timeout while waiting for DDE response");
}

}  // namespace
