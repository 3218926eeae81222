#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

#include "AppState.h"
#include "FormsFixture.h"
#include "FrmOrq.h"
#include "G11n.h"
#include "LinkTextBox.h"
#include "Main.h"
#include "platform/Screen.h"

using namespace sidekin;
using namespace sidekin::test;

namespace {

class MainTest : public FormsFixture {
protected:
    void SetUp() override {
        FormsFixture::SetUp();
        unloadFrmORQ();
        clock.stepPerRead = 0.25;
    }
    void TearDown() override {
        unloadFrmORQ();
        FormsFixture::TearDown();
    }
    WindowHandle formHandle() { return windowHandleOf(frmORQ()); }
};

TEST_F(MainTest, ParentFoundPutsTheWindowAtTheTopOfTheViewMgrChild) {
    const WindowHandle view = windows.addWindow(900, "ViewMGR");
    Main("900|ZenSvc");
    EXPECT_EQ(frmORQ().topTwips(), 0.0f);
    EXPECT_EQ(frmORQ().leftTwips(), 0.0f);
    ASSERT_EQ(windows.parentings.size(), 1u);
    EXPECT_EQ(windows.parentings[0], std::make_pair(formHandle(), view));
    EXPECT_EQ(App.GlblViewMgrWnd, view);
}

TEST_F(MainTest, FailedSearchUsesTheHostTopWindowBelowItsBars) {
    windows.addWindow(900, "Toolbar");
    Main("900|ZenSvc");
    EXPECT_EQ(frmORQ().topTwips(), TwipsPerPixelY() / 15.0f * 1200);
    ASSERT_EQ(windows.parentings.size(), 1u);
    EXPECT_EQ(windows.parentings[0].second, 900);
    EXPECT_EQ(App.GlblViewMgrWnd, 900);
}

TEST_F(MainTest, NoHandleNoParenting) {
    Main("|ZenSvc");
    EXPECT_EQ(frmORQ().topTwips(), TwipsPerPixelY() / 15.0f * 1200);
    EXPECT_TRUE(windows.parentings.empty());
    EXPECT_EQ(App.GlblPrevParentWnd, 0);
}

TEST_F(MainTest, WithoutAHostTheWindowStaysLoadedAndHidden) {
    Main("");
    // The rest of start-up goes on after each handler's box.
    EXPECT_EQ(dialogs.boxTitles(),
              (QStringList{"ParseCommandLine", "VB DDE Error", "iNITddesHOWorq", "ShowHideOrq"}));
    EXPECT_TRUE(frmORQLoaded());
    EXPECT_FALSE(frmORQ().isVisible());
}

TEST_F(MainTest, FormLoadFillsTheOperatorsAndTheRunLabel) {
    App.GlblIniFile = config.write(
        "ORQ.INI", "[Operators]\nNumOperators=3\nOperator1=Ana Ruiz\nOperator3=Tom Baker\n");
    Main("|ZenSvc");
    QComboBox* operators = frmORQ().cboOperator;
    ASSERT_EQ(operators->count(), 3);
    EXPECT_EQ(operators->itemText(0), "Ana Ruiz");
    EXPECT_EQ(operators->itemText(1), "-1");  // a missing name is listed as it reads
    EXPECT_EQ(operators->itemText(2), "Tom Baker");
    EXPECT_EQ(operators->currentIndex(), -1);
    EXPECT_EQ(frmORQ().lblCurrentRun->text(), GetResourceString(17100));
    EXPECT_FALSE(frmORQ().lblCurrentRun->text().isEmpty());
    EXPECT_TRUE(frmORQ().txtSubDir->isHidden());
}

}  // namespace
