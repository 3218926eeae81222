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

TEST_F(StatusEvents, CarriageReturnBeforeTheLastCharacterIsCut) {
    App.GlblRunState = RunStateRunning;
    struct Row {
        const char* name;
        QString text;
        QString methodCaption;
    };
    const Row rows[] = {
        {"line end", "1|0|SysRed|Ready|MthRed|Data Analysis\r\n", "Data Analysis"},
        {"two characters are enough", "\r\n", "Data Analysis"},
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

}  // namespace
}  // namespace sidekin::test
