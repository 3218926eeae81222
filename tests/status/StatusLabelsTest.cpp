// The status labels, fed through the mailbox boxes as the host feeds them.

#include <QLabel>
#include <QLineEdit>

#include "AppState.h"
#include "CPLinks.h"
#include "ColourTable.h"
#include "FontCharset.h"
#include "FormsFixture.h"
#include "FrmOrq.h"
#include "LabelColours.h"
#include "platform/RuntimeError.h"

namespace sidekin::test {
namespace {

class StatusLabels : public FormsFixture {
protected:
    // As the item feed delivers a value: blank-padded to 80 characters.
    static void systemStatus(const QString& value) {
        cpLinks().ddeSystemStatus->setText(value.leftJustified(80, u' ', true));
    }
    static void statusTime(const QString& value) {
        cpLinks().ddeStatusTime->setText(value.leftJustified(80, u' ', true));
    }
    static QLabel* ready() { return frmORQ().lblSysStatusReady; }
    static QLabel* method() { return frmORQ().lblSysStatusMethod; }
    static QLabel* timeLabel() { return frmORQ().lblStatusTime; }
    // The caption and the colours the colour table gives for colourName.
    static void expectLine(const QLabel* label, const QString& text, const QString& colourName) {
        QString background, ink;
        CS2VbColor(colourName, background, ink);
        EXPECT_EQ(label->text(), text);
        EXPECT_EQ(label->palette().color(QPalette::Window), fromVbColor(background.toInt()));
        EXPECT_EQ(label->palette().color(QPalette::WindowText), fromVbColor(ink.toInt()));
    }
};

const QString baseline = "1|0|SysWhite|Ready|MthWhite|Waiting for Ready";

TEST_F(StatusLabels, NestedStepsStopAtTheFirstBadField) {
    const struct {
        const char* name;
        QString status;
        QString ready, readyColour, method, methodColour, lastSys, lastMethod;
    } rows[] = {
        // clang-format off
        {"either prefix on either line", "1|0|MthBlue|Run in Progress|SysMagenta|Data Analysis", "Run in Progress", "MthBlue", "Data Analysis", "SysMagenta", "Run in Progress", "Data Analysis"},
        {"unknown ready colour", "1|0|SysOrange|Not Ready|MthRed|Data Analysis", "Ready", "SysWhite", "Waiting for Ready", "SysWhite", "Ready", "Waiting for Ready"},
        {"empty ready text", "1|0|SysBlack||MthRed|Data Analysis", "Ready", "SysBlack", "Waiting for Ready", "SysWhite", "Ready", "Waiting for Ready"},
        {"unknown method colour", "1|0|SysYellow|Not Ready|MthPink|Data Analysis", "Not Ready", "SysYellow", "Waiting for Ready", "SysWhite", "Ready", "Waiting for Ready"},
        {"empty method text", "1|0|SysGreen|Ready|MthBlack|", "Ready", "SysGreen", "", "MthBlack", "Ready", ""},
        {"caption trimmed, raw text kept", "1|0|SysRed|  Not Ready  |MthRed|Data Analysis", "Not Ready", "SysRed", "Data Analysis", "MthRed", "Not Ready  ", "Data Analysis"},
        // clang-format on
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        systemStatus(baseline);
        systemStatus(row.status);
        expectLine(ready(), row.ready, row.readyColour);
        expectLine(method(), row.method, row.methodColour);
        EXPECT_EQ(App.GlblLastSysStatus, row.lastSys);
        EXPECT_EQ(App.GlblLastMethodStatus, row.lastMethod);
    }
    EXPECT_TRUE(dialogs.shown.empty());
}

// Eight names under either prefix give the host's colours: white ink on the dark ones. A status
// line stops at any other name; the match is exact, prefix and case included.
TEST_F(StatusLabels, ColourTableKnowsOnlyExactNames) {
    QString background, ink;
    for (const QString row :
         {"SysBlack 0 16777215", "MthRed 255 16777215", "SysGreen 65280 0", "MthYellow 65535 0",
          "SysBlue 16711680 16777215", "MthMagenta 16711935 16777215", "SysCyan 16776960 0",
          "MthWhite 16777215 0"}) {
        EXPECT_EQ(CS2VbColor(row.section(' ', 0, 0), background, ink), 0) << row.toStdString();
        EXPECT_EQ(row.section(' ', 0, 0) + ' ' + background + ' ' + ink, row);
    }
    for (const char* name :
         {"", "Sys", "Red", "sysRed", "SysRed ", " SysRed", "SysOrange", "ThmRed"})
        EXPECT_EQ(CS2VbColor(QString::fromLatin1(name), background, ink), 1) << name;
}

// Set before the fields are read, so even a status that changes nothing sets it.
TEST_F(StatusLabels, TranslatedCaptionsInTheLanguagesCharacterSet) {
    const QByteArray readyText = "\xD0\x93\xD0\xBE\xD1\x82\xD0\xBE\xD0\xB2";
    const QByteArray acquiring = "\xD0\xA1\xD0\xB1\xD0\xBE\xD1\x80";
    useTexts("17320=204 Cyrillic\n17300=" + readyText + "\n17306=" + acquiring + "\n");
    App.GlblRunState = RunStateRunning;
    statusTime("|");
    systemStatus("1|0");
    EXPECT_EQ(App.GlblFontCharset, 204);
    for (QLabel* label : {timeLabel(), ready(), method()})  // the fonts: the -ja pictures
        EXPECT_EQ(label->property("fontCharset").toInt(), 204) << label->objectName().toStdString();
    systemStatus("1|0|SysGreen|Ready|MthGreen|Data Acquisition");
    EXPECT_EQ(ready()->text(), QString::fromUtf8(readyText));
    EXPECT_EQ(method()->text(), QString::fromUtf8(acquiring));
    EXPECT_EQ(App.GlblLastSysStatus, "Ready") << "the host's own words are kept";
}

TEST_F(StatusLabels, CharacterSetOverflowEndsInTheHandler) {
    systemStatus(baseline);
    useTexts("17320=99999\n");
    systemStatus("1|0|SysRed|Not Ready|MthRed|Data Analysis");
    EXPECT_EQ(dialogs.boxTitles(), QStringList{"UpdateSystemStatus"});
    EXPECT_EQ(dialogs.shown[0].text, errorDescription(ErrOverflow));
    expectLine(ready(), "Ready", "SysWhite");
}

// Japanese in a Japanese family at the same size and weight: the -ja pictures.
TEST_F(StatusLabels, FontReturnsToItsFamilyForALatinOrUnknownSet) {
    QLabel label;
    const QString latinFamily = label.font().family();
    for (int latinOrUnknown : {0, 238, 999, -5}) {
        applyFontCharset(label, 128);
        applyFontCharset(label, latinOrUnknown);
        EXPECT_EQ(label.font().family(), latinFamily) << latinOrUnknown;
    }
}

TEST_F(StatusLabels, TimeCaptionIsDescriptionValueAndUnit) {
    useTexts("17320=0\n17311=Verstrichen\n17314=Vorbereitung\n17310=Min.\n");
    App.GlblRunState = RunStateRunning;
    const QString before = "Verstrichen: 1 Min.";
    const std::tuple<const char*, QString, QString> rows[] = {
        {"translated", "Prepare|0.50|min", "Vorbereitung: 0.50 Min."},
        {"empty unit leaves no blank", "Elapsed|3|", "Verstrichen: 3"},
        {"unknown words pass", "Equilibration|2|sec", "Equilibration: 2 sec"},
        {"word without a translation", "Post Run|4|min", ": 4 Min."},
        {"empty value keeps the label", "Prepare||min", before},
        {"empty description keeps the label", "|3|min", before},
    };
    for (const auto& [name, status, caption] : rows) {
        statusTime("Elapsed|1|min");
        statusTime(status);
        EXPECT_EQ(timeLabel()->text(), caption) << name;
    }
    for (std::int16_t state : {RunStateIdle, RunStatePausing, RunStatePaused, RunStateStopping}) {
        App.GlblRunState = state;
        statusTime(QString("Elapsed|%1|min").arg(state + 10));
        EXPECT_EQ(timeLabel()->text(),
                  state == RunStateIdle ? before : QString("Verstrichen: %1 Min.").arg(state + 10))
            << "state " << state << ": the label stands still only while idle";
    }
    EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(StatusLabels, ChangeTextsUnderTwoCharactersAreErrorFive) {
    App.GlblRunState = RunStateIdle;  // the text is cut before the state is looked at
    for (auto [title, box] : {std::pair{"DDESystemStatus_Change", cpLinks().ddeSystemStatus},
                              {"DDEStstusTime_Change", cpLinks().ddeStatusTime}})
        for (const char* text : {"", "x"}) {
            box->setText("seed");
            dialogs.shown.clear();
            box->setText(text);
            ASSERT_EQ(dialogs.boxTitles(), QStringList{title}) << text;
            EXPECT_EQ(dialogs.shown[0].text, errorDescription(ErrInvalidCall));
        }
}

TEST_F(StatusLabels, ChangeCutsACarriageReturnBeforeTheLastCharacter) {
    App.GlblRunState = RunStateRunning;
    const QString line = "1|0|SysRed|Ready|MthRed|Data Analysis";
    const std::tuple<const char*, QString, QString> rows[] = {
        {"line end", line + "\r\n", "Data Analysis"},
        {"two characters are enough", "\r\n", "Data Analysis"},
        {"return and any last character", line + "\rx", "Data Analysis"},
        {"lone return at the end stays", line + "\r", "Data Analysis\r"},
        {"padding hides the line end", line + "\r\n  ", "Data Analysis\r\n"},
    };
    for (const auto& [name, text, caption] : rows) {
        cpLinks().ddeSystemStatus->setText(text);
        EXPECT_EQ(method()->text(), caption) << name;
    }
    cpLinks().ddeStatusTime->setText("Elapsed|3|min\r\n");
    EXPECT_EQ(timeLabel()->text(), "Elapsed: 3 min");
    EXPECT_TRUE(dialogs.shown.empty());
}

}  // namespace
}  // namespace sidekin::test
