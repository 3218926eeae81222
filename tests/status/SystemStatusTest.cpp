// The system status labels, fed through the mailbox box as the host feeds them.

#include <QFontDatabase>
#include <QImage>

#include "StatusFixture.h"

namespace sidekin::test {
namespace {

const QColor White(255, 255, 255);
const QColor Black(0, 0, 0);
const QColor Red(255, 0, 0);
const QColor Green(0, 255, 0);
const QColor Blue(0, 0, 255);
const QColor Yellow(255, 255, 0);
const QColor Magenta(255, 0, 255);
const QColor Cyan(0, 255, 255);

struct Line {
    QString text;
    QColor background;
    QColor ink;
};

using SystemStatus = StatusFixture;

const QString baseline = "1|0|SysWhite|Ready|MthWhite|Waiting for Ready";
const Line readyBefore{"Ready", White, Black};
const Line methodBefore{"Waiting for Ready", White, Black};

void expectLine(const QLabel* label, const Line& line) {
    EXPECT_EQ(label->text(), line.text);
    EXPECT_EQ(label->palette().color(QPalette::Window), line.background);
    EXPECT_EQ(label->palette().color(QPalette::WindowText), line.ink);
}

TEST_F(SystemStatus, NestedStepsStopAtTheFirstBadField) {
    struct Row {
        const char* name;
        QString status;
        Line ready;
        Line method;
        QString lastSys;
        QString lastMethod;
    };
    const Row rows[] = {
        {"both lines",
         "1|0|SysRed|Not Ready|MthGreen|Data Acquisition",
         {"Not Ready", Red, White},
         {"Data Acquisition", Green, Black},
         "Not Ready",
         "Data Acquisition"},
        {"either prefix on either line",
         "1|0|MthBlue|Run in Progress|SysMagenta|Data Analysis",
         {"Run in Progress", Blue, White},
         {"Data Analysis", Magenta, White},
         "Run in Progress",
         "Data Analysis"},
        {"fewer than three fields", "1|0", readyBefore, methodBefore, "Ready", "Waiting for Ready"},
        {"unknown ready colour", "1|0|SysOrange|Not Ready|MthRed|Data Analysis", readyBefore,
         methodBefore, "Ready", "Waiting for Ready"},
        {"colour name in other case", "1|0|sysred|Not Ready|MthRed|Data Analysis", readyBefore,
         methodBefore, "Ready", "Waiting for Ready"},
        {"empty ready text",
         "1|0|SysBlack||MthRed|Data Analysis",
         {"Ready", Black, White},
         methodBefore,
         "Ready",
         "Waiting for Ready"},
        {"unknown method colour",
         "1|0|SysYellow|Not Ready|MthPink|Data Analysis",
         {"Not Ready", Yellow, Black},
         methodBefore,
         "Ready",
         "Waiting for Ready"},
        {"empty method colour",
         "1|0|SysCyan|Not Ready||Data Analysis",
         {"Not Ready", Cyan, Black},
         methodBefore,
         "Ready",
         "Waiting for Ready"},
        {"empty method text",
         "1|0|SysGreen|Ready|MthBlack|",
         {"Ready", Green, Black},
         {"", Black, White},
         "Ready",
         ""},
        {"no method text field",
         "1|0|SysGreen|Ready|MthBlack",
         {"Ready", Green, Black},
         {"", Black, White},
         "Ready",
         ""},
        {"caption trimmed, raw text kept",
         "1|0|SysRed|  Not Ready  |MthRed|Data Analysis",
         {"Not Ready", Red, White},
         {"Data Analysis", Red, White},
         "Not Ready  ",
         "Data Analysis"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        systemStatus(baseline);
        systemStatus(row.status);
        expectLine(ready(), row.ready);
        expectLine(method(), row.method);
        EXPECT_EQ(App.GlblLastSysStatus, row.lastSys);
        EXPECT_EQ(App.GlblLastMethodStatus, row.lastMethod);
    }
    EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(SystemStatus, ColoursReachTheScreen) {
    systemStatus("1|0|SysRed|Ready|MthBlue|Data Analysis");
    EXPECT_EQ(ready()->grab().toImage().pixelColor(1, 1), Red);
    EXPECT_EQ(method()->grab().toImage().pixelColor(1, 1), Blue);
}

TEST_F(SystemStatus, TranslatedCaptionsInTheLanguagesCharacterSet) {
    useTexts(
        "17320=204 Cyrillic\n17300=\xD0\x93\xD0\xBE\xD1\x82\xD0\xBE\xD0\xB2\n"
        "17306=\xD0\xA1\xD0\xB1\xD0\xBE\xD1\x80\n");
    systemStatus("1|0|SysGreen|Ready|MthGreen|Data Acquisition");
    EXPECT_EQ(App.GlblFontCharset, 204);
    EXPECT_EQ(ready()->text(), QString::fromUtf8("\xD0\x93\xD0\xBE\xD1\x82\xD0\xBE\xD0\xB2"));
    EXPECT_EQ(method()->text(), QString::fromUtf8("\xD0\xA1\xD0\xB1\xD0\xBE\xD1\x80"));
    // The raw host words are kept, not the translations.
    EXPECT_EQ(App.GlblLastSysStatus, "Ready");
    const QStringList cyrillic = QFontDatabase::families(QFontDatabase::Cyrillic);
    for (QLabel* label : {ready(), method()}) {
        SCOPED_TRACE(label->objectName().toStdString());
        EXPECT_EQ(label->property("fontCharset").toInt(), 204);
        if (!cyrillic.isEmpty()) {
            EXPECT_TRUE(cyrillic.contains(label->font().family()));
        }
    }
}

TEST_F(SystemStatus, CharacterSetOverflowEndsInTheHandler) {
    systemStatus(baseline);
    useTexts("17320=99999\n");
    systemStatus("1|0|SysRed|Not Ready|MthRed|Data Analysis");
    EXPECT_EQ(dialogs.boxTitles(), QStringList{"UpdateSystemStatus"});
    EXPECT_EQ(dialogs.shown[0].text, "Overflow");
    expectLine(ready(), readyBefore);
}

}  // namespace
}  // namespace sidekin::test
