#include <gtest/gtest.h>

#include "ColourTable.h"
#include "LabelColours.h"

namespace sidekin {
namespace {

TEST(ColourTable, AnyOtherNameIsWhiteOnBlackWithResultOne) {
    for (const char* name : {"", "Sys", "Mth", "Red", "sysRed", "SYSRED", "Mthred", "SysRed ",
                             " SysRed", "SysRedX", "SysOrange", "ThmRed", "SysGray"}) {
        SCOPED_TRACE(name);
        QString background = "junk";
        QString text = "junk";
        EXPECT_EQ(CS2VbColor(QString::fromLatin1(name), background, text), 1);
        EXPECT_EQ(background, "16777215");
        EXPECT_EQ(text, "0");
    }
}

TEST(ColourTable, NumbersCarryRedInTheLowByte) {
    struct Row {
        std::int32_t value;
        QColor expected;
    };
    const Row rows[] = {
        {255, QColor(255, 0, 0)},
        {65280, QColor(0, 255, 0)},
        {16711680, QColor(0, 0, 255)},
        {65535, QColor(255, 255, 0)},
        {16776960, QColor(0, 255, 255)},
        {16711935, QColor(255, 0, 255)},
        {0x123456, QColor(0x56, 0x34, 0x12)},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.value);
        EXPECT_EQ(fromVbColor(row.value), row.expected);
    }
}

}  // namespace
}  // namespace sidekin
