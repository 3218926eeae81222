#include <gtest/gtest.h>

#include "ErrorOf.h"
#include "platform/DateFormats.h"
#include "platform/RuntimeError.h"

using namespace sidekin;

namespace {

TEST(DateFormatsTest, EachKnownFormat) {
    const QDateTime moment(QDate(2024, 11, 22), QTime(15, 4, 5));
    EXPECT_EQ(FormatDate(moment, "yyyymmdd"), "20241122");
    EXPECT_EQ(FormatDate(moment, "yymmdd"), "241122");
    EXPECT_EQ(FormatDate(QDateTime(QDate(2026, 3, 5), QTime()), "mmdd"), "0305");
    EXPECT_EQ(FormatDate(moment, "yyyy"), "2024");
    EXPECT_EQ(FormatDate(QDateTime(QDate(2026, 2, 1), QTime()), "y"), "32");  // day of the year
    EXPECT_EQ(FormatDate(QDateTime(QDate(2024, 12, 31), QTime()), "y"), "366");
    const QString date = FormatDate(moment, "dddddd");
    EXPECT_TRUE(date.contains("2024") && date.contains("22")) << date.toStdString();
    const QString time = FormatDate(moment, "ttttt");
    EXPECT_TRUE(time.contains("04") && time.contains("05")) << time.toStdString();
    EXPECT_EQ(test::errorOf([&] { FormatDate(moment, "dd.mm"); }), ErrInvalidCall);
}

}  // namespace
