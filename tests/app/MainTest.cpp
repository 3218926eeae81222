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
};

TEST_F(MainTest, WindowGoesIntoTheViewMgrChildOrBelowTheHostBars) {
    const float belowBars = TwipsPerPixelY() / 15.0f * 1200;
    // Command line, title of the child under host 900, the window's top, whether it is parented.
    const std::tuple<const char*, const char*, const char*, float, bool> rows[] = {
        {"viewMgrFound", "900|ZenSvc", "ViewMGR", 0.0f, true},
        {"searchFailed", "900|ZenSvc", "Toolbar", belowBars, true},
        {"noHandle", "|ZenSvc", "ViewMGR", belowBars, false},
    };
    for (const auto& [name, line, title, top, parented] : rows) {
        SCOPED_TRACE(name);
        unloadFrmORQ();
        resetAppState();
        FakeWindowSystem tree;
        const WindowHandle child = tree.addWindow(900, title);
        const WindowHandle parent = top == 0.0f ? child : 900;
        Main(line);
        EXPECT_EQ(frmORQ().topTwips(), top);
        EXPECT_EQ(tree.parentings, (std::vector<std::pair<WindowHandle, WindowHandle>>(
                                       parented, {windowHandleOf(frmORQ()), parent})));
        EXPECT_EQ(App.GlblViewMgrWnd, parented ? parent : 0);
        EXPECT_TRUE(parented || App.GlblPrevParentWnd == 0);
    }
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
    QStringList names;
    for (int i = 0; i < operators->count(); ++i) names << operators->itemText(i);
    EXPECT_EQ(names, (QStringList{"Ana Ruiz", "-1", "Tom Baker"}));  // a missing name reads -1
    EXPECT_EQ(operators->currentIndex(), -1);
    EXPECT_EQ(frmORQ().lblCurrentRun->text(), GetResourceString(17100));
    EXPECT_TRUE(frmORQ().txtSubDir->isHidden());
}

}  // namespace
