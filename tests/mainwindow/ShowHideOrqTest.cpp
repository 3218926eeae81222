#include <QLineEdit>

#include "EntryForms.h"
#include "FormsFixture.h"
#include "FrmOrq.h"
#include "LinkTextBox.h"
#include "ShowHideOrq.h"

using namespace sidekin;
using namespace sidekin::test;

namespace {

class ShowHideOrqTest : public FormsFixture {
protected:
    // The link box's change event acts on each new value.
    void hostSays(const char* value) { frmORQ().ddeShowORQ->setText(QString::fromLatin1(value)); }
};

TEST_F(ShowHideOrqTest, ShowAndHideOnTheHostsWord) {
    hostSays("11\r\n");
    EXPECT_TRUE(frmORQ().isVisible());
    hostSays("11\r\n");
    EXPECT_TRUE(frmORQ().isVisible());
    hostSays("10\r\n");
    EXPECT_TRUE(frmORQ().isVisible());
    frmRnTblEdit().show();
    hostSays("01\r\n");
    EXPECT_FALSE(frmORQ().isVisible());
    EXPECT_FALSE(frmRnTblEdit().isVisible());
    hostSays("11\r\n");  // the main window alone comes back
    EXPECT_FALSE(frmRnTblEdit().isVisible());
    EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(ShowHideOrqTest, ValueWithoutLineEndIsCutToNothing) {
    hostSays("11");
    EXPECT_FALSE(frmORQ().isVisible());
    EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(ShowHideOrqTest, TooShortForTheLineEndIsErrorFive) {
    ShowHideOrq();
    EXPECT_EQ(dialogs.boxTitles(), QStringList{"ShowHideOrq"});
    EXPECT_EQ(dialogs.shown[0].text, "Invalid procedure call or argument");
}

TEST_F(ShowHideOrqTest, ZeroZeroEndsTheProgram) { EXPECT_THROW(hostSays("00\r\n"), ProgramEnded); }

}  // namespace
