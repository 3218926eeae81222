#include <gtest/gtest.h>

#include "ColourTable.h"
#include "LabelColours.h"

namespace sidekin {
namespace {

TEST(ColourTable, EveryNameUnderBothPrefixes) {
    struct Row {
        const char* colour;
        const char* background;
        const char* text;
    };
    const Row rows[] = {
        {"Black", "0", "16777215"},       {"Red", "255", "16777215"},
        {"Green", "65280", "0"},          {"Yellow", "65535", "0"},
        {"Blue", "16711680", "16777215"}, {"Magenta", "16711935", "16777215"},
        {"Cyan", "16776960", "0"},        {"White", "16777215", "0"},
    };
    for (const char* prefix : {"Sys", "Mth"}) {
        for (const Row& row : rows) {
            const QString name = QString::fromLatin1(prefix) + QString::fromLatin1(row.colour);
            SCOPED_TRACE(name.toStdString());
            QString background = "junk";
            QString text = "junk";
            EXPECT_EQ(CS2VbColor(name, background, text), 0);
            EXPECT_EQ(background, row.background);
            EXPECT_EQ(text, row.text);
        }
    }
}

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
