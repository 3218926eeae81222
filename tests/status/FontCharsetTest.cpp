// The font that a legacy character set number stands for.

#include <QApplication>
#include <QFontDatabase>

#include "FontCharset.h"
#include "StatusFixture.h"
#include "platform/RuntimeError.h"

namespace sidekin::test {
namespace {

using FontCharset = StatusFixture;

TEST_F(FontCharset, ScriptSetsGetAFamilyForTheirScript) {
    struct Row {
        int charset;
        QFontDatabase::WritingSystem script;
    };
    const Row rows[] = {
        {128, QFontDatabase::Japanese},
        {129, QFontDatabase::Korean},
        {134, QFontDatabase::SimplifiedChinese},
        {136, QFontDatabase::TraditionalChinese},
        {161, QFontDatabase::Greek},
        {177, QFontDatabase::Hebrew},
        {178, QFontDatabase::Arabic},
        {204, QFontDatabase::Cyrillic},
        {222, QFontDatabase::Thai},
    };
    QLabel label;
    const QString latinFamily = label.font().family();
    for (const Row& row : rows) {
        SCOPED_TRACE(row.charset);
        applyFontCharset(label, row.charset);
        EXPECT_EQ(label.property("fontCharset").toInt(), row.charset);
        const QString family = label.font().family();
        const QStringList installed = QFontDatabase::families(row.script);
        if (installed.isEmpty()) {
            EXPECT_FALSE(family.isEmpty());
        } else {
            EXPECT_TRUE(installed.contains(family)) << family.toStdString();
        }
        // Back to a Latin set restores the family a label has by default.
        applyFontCharset(label, 0);
        EXPECT_EQ(label.font().family(), latinFamily);
    }
}

TEST_F(FontCharset, LatinAndUnknownSetsKeepTheDefaultFamily) {
    QLabel label;
    const QFont before = label.font();
    for (int charset : {0, 1, 162, 186, 238, 999, -5}) {
        SCOPED_TRACE(charset);
        applyFontCharset(label, charset);
        EXPECT_EQ(label.font().family(), before.family());
        EXPECT_EQ(label.font().pointSizeF(), before.pointSizeF());
    }
}

TEST_F(FontCharset, SizeAndWeightSurviveAScriptChange) {
    QLabel label;
    QFont font = label.font();
    font.setPointSizeF(9.75);
    font.setBold(true);
    label.setFont(font);
    applyFontCharset(label, 128);
    EXPECT_EQ(label.font().pointSizeF(), 9.75);
    EXPECT_TRUE(label.font().bold());
}

TEST_F(FontCharset, NumberIsTheNumericPrefixOfTheLanguageText) {
    struct Row {
        QByteArray table;
        std::int16_t expected;
    };
    const Row rows[] = {
        {"17320=204", 204},   {"17320=128 Shift-JIS", 128},
        {"17320=  134", 134}, {"17320=Cyrillic", 0},
        {"17320=", 0},        {"17002=no charset here", 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.table.toStdString());
        App.GlblFontCharset = 77;
        useTexts(row.table);
        EXPECT_EQ(readFontCharset(), row.expected);
        EXPECT_EQ(App.GlblFontCharset, row.expected);
    }
    useTexts("17320=40000");
    EXPECT_THROW(readFontCharset(), RuntimeError);
}

}  // namespace
}  // namespace sidekin::test
