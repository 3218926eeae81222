#include <QAbstractButton>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <csignal>
#include <functional>

#include "AppState.h"
#include "EntryForms.h"
#include "FlexGridView.h"
#include "FormsFixture.h"
#include "FrmOrq.h"
#include "LinkTextBox.h"
#include "RunControl.h"
#include "RunTable.h"
#include "RunTableCommands.h"
#include "SimulatorProcess.h"
#include "StartupFetch.h"
#include "WalkFixture.h"
#include "platform/Screen.h"

using namespace sidekin;
using namespace sidekin::test;

namespace {

class MainWindowTest : public WalkFixture {
protected:
    FlexGrid& grid() { return frmORQ().fgrdRunTable->grid(); }
    // Column 0 and the data file of each row: "1RunA 2RunB ...".
    QString order() {
        QStringList rows;
        for (int r = 1; r < grid().Rows(); ++r)
            rows << grid().TextMatrix(r, 0) + grid().TextMatrix(r, 6);
        return rows.join(u' ');
    }
};

TEST_F(MainWindowTest, TableCommandsKeepRowsUpToTheCurrentRun) {
    startHost();
    const struct {
        const char* name;
        std::function<void()> command;
        int currentRun, selected;
        const char* order;
        int selectedAfter;
        QStringList boxes;
        // clang-format off
    } cases[] = {
        {"down first", cmdDown_Click, 0, 1, "1RunB 2RunA 3RunC", 2, {}},
        {"down last", cmdDown_Click, 0, 3, "1RunA 2RunB 3RunC", 3, {}},
        {"down paused", cmdDown_Click, 1, 2, "1RunA 2RunC 3RunB", 3, {}},
        {"down current", cmdDown_Click, 1, 1, "1RunA 2RunB 3RunC", 1, {}},
        {"up first", cmdUp_Click, 0, 1, "1RunA 2RunB 3RunC", 1, {}},
        {"up last", cmdUp_Click, 0, 3, "1RunA 2RunC 3RunB", 2, {}},
        {"up first free", cmdUp_Click, 1, 2, "1RunA 2RunB 3RunC", 2, {}},
        {"up second", cmdUp_Click, 0, 2, "1RunB 2RunA 3RunC", 1, {}},
        {"delete", cmdRnTblDel_Click, 0, 2, "1RunA 2RunC", -1, {}},
        {"delete current", cmdRnTblDel_Click, 1, 1, "1RunA 2RunB 3RunC", 1, {"17261: 17202"}},
        {"delete nothing", cmdRnTblDel_Click, 0, 0, "1RunA 2RunB 3RunC", 0, {"17261: 17202"}},
        {"edit current", cmdRnTblEdit_Click, 2, 2, "1RunA 2RunB 3RunC", 2, {"17262: 17203"}},
    };
    // clang-format on
    for (const auto& c : cases) {
        ClearRunTable(frmORQ());
        threeRows();
        EnableRnTblChanges();
        grid().setRowSel(c.selected);
        App.GlblCurrentRun = static_cast<std::int16_t>(c.currentRun);
        dialogs.shown.clear();
        c.command();
        EXPECT_EQ(order(), c.order) << c.name;
        if (c.selectedAfter >= 0) {
            EXPECT_EQ(grid().RowSel(), c.selectedAfter) << c.name;
        }
        QStringList boxes;
        for (const QString& id : c.boxes)
            boxes << text(id.left(5).toInt()) + ": " + text(id.mid(7).toInt());
        QStringList shown;
        for (const Shown& s : dialogs.shown) shown << s.title + ": " + s.text;
        EXPECT_EQ(shown, boxes) << c.name;
    }
}

TEST_F(MainWindowTest, DeletingTheOnlyRunKeepsTheOperatorClearAllDoesNot) {
    startHost();
    addRun("FRONTSTD", 17044, "5", "RunA");
    EnableRnTblChanges();
    grid().setRowSel(1);
    frmORQ().cmdRnTblDel->click();
    EXPECT_EQ(grid().Rows(), 1);
    EXPECT_TRUE(frmORQ().cmdRnTblAdd->isEnabled());
    EXPECT_FALSE(frmORQ().cmdRnTblEdit->isEnabled());
    EXPECT_FALSE(frmORQ().cboOperator->currentText().isEmpty());

    frmORQ().cmdRnTblClear->click();
    EXPECT_FALSE(frmORQ().cmdRnTblAdd->isEnabled());
    EXPECT_TRUE(frmORQ().cboOperator->currentText().isEmpty());
    EXPECT_EQ(frmORQ().lblCurrentRun->text(), text(17100));
    EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(MainWindowTest, OperatorChoice) {
    startHost();
    QComboBox& list = *frmORQ().cboOperator;
    const QString first = list.currentText();
    list.addItem(QString(29, 'a'));
    list.addItem(QString(30, 'b'));
    auto modals = [this] {
        return std::count_if(dialogs.shown.begin(), dialogs.shown.end(),
                             [](const Shown& s) { return s.kind == Shown::Modal; });
    };

    list.setCurrentText(QString(30, 'b'));
    EXPECT_EQ(dialogs.boxTitles(), QStringList{text(17260)});
    EXPECT_EQ(dialogs.shown.back().text, text(17201));
    EXPECT_EQ(App.GlblOperator, first);
    EXPECT_EQ(modals(), 0);

    list.setCurrentText(QString(29, 'a'));
    EXPECT_EQ(modals(), 1);
    EXPECT_EQ(App.GlblOperator, QString(29, 'a'));
    QTest::keyClick(&list, Qt::Key_Return);  // Return chooses again: the Add form opens
    EXPECT_EQ(modals(), 2);
    // Picking the chosen entry again in the list is a choice too (in a later
    // turn of the event loop, as an operator's pick comes).
    QCoreApplication::processEvents();
    emit list.activated(list.currentIndex());
    EXPECT_EQ(modals(), 3);
    emit frmORQ().fgrdRunTable->DblClick();  // on an empty table: Add
    EXPECT_EQ(modals(), 4);

    threeRows();
    grid().setRows(2);  // one run is a table to keep
    dialogs.shown.clear();
    dialogs.answerBox(BoxAnswer::No);
    list.setCurrentText(first);
    EXPECT_EQ(list.currentText(), QString(29, 'a'));
    EXPECT_EQ(grid().Rows(), 2);
    dialogs.answerBox(BoxAnswer::Yes);
    list.setCurrentText(first);
    EXPECT_EQ(grid().Rows(), 1);
    EXPECT_EQ(dialogs.boxTitles(), (QStringList{text(17260), text(17260)}));
    EXPECT_EQ(dialogs.shown.back().text, text(17200));
    EXPECT_EQ(modals(), 0);
}

TEST_F(MainWindowTest, InstructionsOpenThePairsDocumentOrTheGeneralOne) {
    startHost();
    frmORQ().cmdInstructions->click();
    addRun("FRONTSTD", 17044, "5", "RunA");
    addRun("BACKSTD", 17045, "7", "RunB");
    grid().setTextMatrix(1, 1, "Solvent Blank");  // the demo names a document for this pair
    grid().setRowSel(1);
    frmORQ().cmdInstructions->click();
    grid().setRowSel(2);
    frmORQ().cmdInstructions->click();
    ASSERT_EQ(dialogs.shown.size(), 3u);
    EXPECT_EQ(dialogs.shown[0], (Shown{Shown::Document, {}, "ORQInitial.txt", App.GlblOrqDir}));
    EXPECT_EQ(dialogs.shown[1].text, "solvent-blank.txt");
    EXPECT_TRUE(QFileInfo(dialogs.shown[1].title + "/solvent-blank.txt").isFile());
    EXPECT_EQ(dialogs.shown[2].title, text(17265));
}

TEST_F(MainWindowTest, SubdirectoryIsCheckedOnlyWhenTheOperatorLeavesIt) {
    startHost();
    threeRows();
    QDir().mkpath(host->dataFolder() + "Batch7/RunB.d");
    FrmOrq& form = frmORQ();
    form.txtSubDir->show();
    form.show();
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    auto focusField = [&] {
        form.txtSubDir->setEnabled(true);
        form.txtSubDir->setFocus();
        ASSERT_TRUE(form.txtSubDir->hasFocus());
    };
    focusField();
    form.txtSubDir->setEnabled(false);  // as Start does
    focusField();
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_TRUE(dialogs.shown.empty());

    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    focusField();
    QTest::keyClick(form.txtSubDir, Qt::Key_Tab);
    EXPECT_EQ(dialogs.boxTitles(), QStringList{text(17263)});
}

TEST_F(MainWindowTest, LostHostIsMarkedOnTheFrameWhileTheLabelsKeepItsLastWords) {
    startHost();
    ASSERT_TRUE(waitUntil([] { return !frmORQ().lblSysStatusReady->text().isEmpty(); }));
    const QString ready = frmORQ().lblSysStatusReady->text();
    const QString title = frmORQ().fraSystemStatus->title();
    host->kill();
    ASSERT_TRUE(waitUntil([&] { return frmORQ().fraSystemStatus->title() != title; }));
    const QString time = clock.now().time().toString("HH:mm:ss");
    EXPECT_EQ(frmORQ().fraSystemStatus->title(), title + "  \u26A0 " + time);
    EXPECT_TRUE(frmORQ().fraSystemStatus->toolTip().endsWith(time + "."));
    EXPECT_EQ(frmORQ().lblSysStatusReady->text(), ready);
    EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(MainWindowTest, FrozenHostHoldsTheStartUpOnlyBriefly) {
    SimulatorProcess frozen;
    ASSERT_TRUE(frozen.started());
    ::kill(static_cast<pid_t>(frozen.pid()), SIGSTOP);
    App.GlblDDEApp = frozen.service();
    OpenDDELinks();  // six subscriptions of a minute each, were the whole not bounded
    ::kill(static_cast<pid_t>(frozen.pid()), SIGCONT);
    EXPECT_EQ(dialogs.boxTitles(), QStringList{"VB DDE Error"});
}

class ShowHideOrqTest : public FormsFixture {
protected:
    // The link box's change event acts on each new value.
    void hostSays(const char* value) { frmORQ().ddeShowORQ->setText(QString::fromLatin1(value)); }
};

TEST_F(ShowHideOrqTest, ShowAndHideOnTheHostsWord) {
    hostSays("11");  // without its line end the word is cut to nothing
    EXPECT_FALSE(frmORQ().isVisible());
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

TEST_F(ShowHideOrqTest, ZeroZeroEndsTheProgram) { EXPECT_THROW(hostSays("00\r\n"), ProgramEnded); }

}  // namespace
