#include <gtest/gtest.h>

#include "platform/DateFormats.h"
#include "platform/RuntimeError.h"

using namespace sidekin;

namespace {

TEST(DateFormatsTest, FixedFormats) {
    const QDateTime moment(QDate(2026, 3, 5), QTime(7, 8, 9));
    EXPECT_EQ(FormatDate(moment, "yyyymmdd"), "20260305");
    EXPECT_EQ(FormatDate(moment, "yymmdd"), "260305");
    EXPECT_EQ(FormatDate(moment, "mmdd"), "0305");
    EXPECT_EQ(FormatDate(moment, "yyyy"), "2026");
}

TEST(DateFormatsTest, YIsTheDayOfTheYear) {
    EXPECT_EQ(FormatDate(QDateTime(QDate(2026, 1, 1), QTime()), "y"), "1");
    EXPECT_EQ(FormatDate(QDateTime(QDate(2026, 2, 1), QTime()), "y"), "32");
    EXPECT_EQ(FormatDate(QDateTime(QDate(2024, 12, 31), QTime()), "y"), "366");
}

TEST(DateFormatsTest, LongDateAndTimeCarryTheirParts) {
    const QDateTime moment(QDate(2026, 11, 22), QTime(15, 4, 5));
    const QString date = FormatDate(moment, "dddddd");
    EXPECT_TRUE(date.contains("2026")) << date.toStdString();
    EXPECT_TRUE(date.contains("22")) << date.toStdString();
    const QString time = FormatDate(moment, "ttttt");
    EXPECT_TRUE(time.contains("04")) << time.toStdString();
    EXPECT_TRUE(time.contains("05")) << time.toStdString();
}

TEST(DateFormatsTest, UnknownFormatIsErrorFive) {
    try {
        FormatDate(QDateTime::currentDateTime(), "dd.mm");
        FAIL();
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.number(), ErrInvalidCall);
    }
}

}  // namespace
