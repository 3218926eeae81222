// The two change events of the mailbox boxes.

#include "StatusFixture.h"

namespace sidekin::test {
namespace {

using StatusEvents = StatusFixture;

TEST_F(StatusEvents, TextsUnderTwoCharactersAreErrorFive) {
    struct Row {
        const char* title;
        QLineEdit* (*box)();
        QString text;
    };
    const Row rows[] = {
        {"DDESystemStatus_Change", [] { return cpLinks().ddeSystemStatus; }, ""},
        {"DDESystemStatus_Change", [] { return cpLinks().ddeSystemStatus; }, "x"},
        {"DDEStstusTime_Change", [] { return cpLinks().ddeStatusTime; }, ""},
        {"DDEStstusTime_Change", [] { return cpLinks().ddeStatusTime; }, "x"},
    };
    App.GlblRunState = RunStateIdle;  // the text is cut before the state is looked at
    for (const Row& row : rows) {
        SCOPED_TRACE(row.title + (" \"" + row.text.toStdString() + "\""));
        row.box()->setText("seed");
        dialogs.shown.clear();
        row.box()->setText(row.text);
        ASSERT_EQ(dialogs.boxTitles(), QStringList{row.title});
        EXPECT_EQ(dialogs.shown[0].text, "Invalid procedure call or argument");
    }
}

TEST_F(StatusEvents, TwoCharactersAreEnough) {
    App.GlblRunState = RunStateRunning;
    cpLinks().ddeSystemStatus->setText("\r\n");
    cpLinks().ddeStatusTime->setText("ab");
    EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(StatusEvents, CarriageReturnBeforeTheLastCharacterIsCut) {
    App.GlblRunState = RunStateRunning;
    struct Row {
        const char* name;
        QString text;
        QString methodCaption;
    };
    const Row rows[] = {
        {"line end", "1|0|SysRed|Ready|MthRed|Data Analysis\r\n", "Data Analysis"},
        {"return and any last character", "1|0|SysRed|Ready|MthRed|Data Analysis\rx",
         "Data Analysis"},
        {"lone return at the end stays", "1|0|SysRed|Ready|MthRed|Data Analysis\r",
         "Data Analysis\r"},
        {"padding hides the line end", "1|0|SysRed|Ready|MthRed|Data Analysis\r\n  ",
         "Data Analysis\r\n"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        cpLinks().ddeSystemStatus->setText(row.text);
        EXPECT_EQ(frmORQ().lblSysStatusMethod->text(), row.methodCaption);
    }
    cpLinks().ddeStatusTime->setText("Elapsed|3|min\r\n");
    EXPECT_EQ(frmORQ().lblStatusTime->text(), "Elapsed: 3 min");
    EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(StatusEvents, TheSameValueTwiceDoesNothing) {
    App.GlblRunState = RunStateRunning;
    systemStatus("1|0|SysRed|Ready|MthRed|Data Analysis");
    statusTime("Elapsed|3|min");
    ready()->setText("marker");
    timeLabel()->setText("marker");
    systemStatus("1|0|SysRed|Ready|MthRed|Data Analysis");
    statusTime("Elapsed|3|min");
    EXPECT_EQ(ready()->text(), "marker");
    EXPECT_EQ(timeLabel()->text(), "marker");
}

TEST_F(StatusEvents, WiringTwiceRunsEachEventOnce) {
    wireStatusEvents();
    cpLinks().ddeSystemStatus->setText("x");
    cpLinks().ddeStatusTime->setText("x");
    EXPECT_EQ(dialogs.boxTitles(), (QStringList{"DDESystemStatus_Change", "DDEStstusTime_Change"}));
}

}  // namespace
}  // namespace sidekin::test
