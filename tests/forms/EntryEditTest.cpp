// The Edit form: showing a row, walking, and what Replace does with a row's name.
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "AppState.h"
#include "EntryFixture.h"
#include "FlexGridView.h"
#include "FrmOrq.h"
#include "Profile.h"
#include "RunTable.h"
#include "RunTableColumns.h"

using namespace sidekin;
using namespace sidekin::test;

namespace {

class EntryEditTest : public EntryFixture {
public:
    FlexGrid& grid() { return frmORQ().fgrdRunTable->grid(); }

protected:
    // Rows added through the Add form, then the Edit form opened on row.
    void addThenEdit(const QString& sample, const QString& method, const QString& count, int row) {
        choose(frmRnTblAdd(), sample, method);
        frmRnTblAdd().txtSampleID->setText("S1");
        frmRnTblAdd().cboInjVial->setEditText(count);
        frmRnTblAdd().cmdAdd->click();
        SelectRunTableRow(grid(), row);
        App.GlblEditOpen = 1;
        frmRnTblEdit().show();
        dialogs.shown.clear();
    }
    QString counter() const {
        return GetPvtProfileStr("Solvent Blank,FRONTSTD", "DataFile", App.GlblIniFile);
    }
};

TEST_F(EntryEditTest, ActivationFillsTheFormOnce) {
    connect();
    addThenEdit("Calibration Mix", "FRONTSTD", "1", 1);
    FrmRnTblEdit& edit = frmRnTblEdit();
    EXPECT_EQ(edit.cboSample->currentText(), "Calibration Mix");
    EXPECT_EQ(edit.txtDataFile->text(), "CAL01");
    EXPECT_EQ(edit.txtInjType->text(), text(17044));
    EXPECT_EQ(edit.lblVial->text(), text(17061));
    EXPECT_EQ(App.GlblEditOpen, 0);
    edit.txtSampleID->setText("typed");
    edit.hide();
    edit.show();
    EXPECT_EQ(edit.txtSampleID->text(), "typed");
}

TEST_F(EntryEditTest, WalkStopsAtBothEnds) {
    connect();
    addThenEdit("Solvent Blank", "FRONTSTD", "2", 1);
    FrmRnTblEdit& edit = frmRnTblEdit();
    edit.btnPrevious->click();
    EXPECT_EQ(grid().RowSel(), 1);
    edit.btnNext->click();
    EXPECT_EQ(grid().RowSel(), 2);
    EXPECT_EQ(edit.txtDataFile->text(), "BLKF000001");
    edit.btnNext->click();
    EXPECT_EQ(grid().RowSel(), 2);
    EXPECT_EQ(grid().Col(), 2);
}

TEST_F(EntryEditTest, ReplaceKeepsOrRenewsTheName) {
    const struct {
        const char* name;
        std::function<void(EntryEditTest&)> change;
        QString dataFile, counter;
        // clang-format off
    } cases[] = {
        {"unchanged_counter_row_keeps_name",
         [](auto&) { frmRnTblEdit().txtSampleID->setText("S2"); }, "BLKF000000", "BLKF,2"},
        {"completed_current_cell_takes_number",
         [](auto& t) { ColorRunTableRow(t.grid(), 1, RnTblColorCompleted); }, "BLKF000002",
         "BLKF,3"},
        {"name_of_another_row_takes_number",
         [](auto& t) { t.grid().setTextMatrix(2, ColDataFile, "BLKF000000"); }, "BLKF000002",
         "BLKF,3"},
        {"edited_name_differs_from_cell_takes_number",
         [](auto&) { frmRnTblEdit().txtDataFile->setText("OTHER"); }, "BLKF000002", "BLKF,3"},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        connect();
        addThenEdit("Solvent Blank", "FRONTSTD", "2", 1);
        c.change(*this);
        frmRnTblEdit().btnReplace->click();
        EXPECT_TRUE(boxes().isEmpty()) << boxes().join('\n').toStdString();
        EXPECT_EQ(grid().TextMatrix(1, ColDataFile), c.dataFile);
        EXPECT_EQ(grid().TextMatrix(1, ColRunNumber), "1");
        EXPECT_EQ(grid().Rows(), 3);
        EXPECT_EQ(grid().cellBackColor(1, 0), 0u);
        EXPECT_EQ(counter(), c.counter);
        TearDown();
        SetUp();
    }
}

TEST_F(EntryEditTest, ReplacingTheOnlyRowKeepsOneRow) {
    connect();
    addThenEdit("Calibration Mix", "FRONTSTD", "1", 1);
    frmORQ().cmdRnTblEdit->setEnabled(false);
    frmRnTblEdit().txtSampleID->setText("S9");
    frmRnTblEdit().btnReplace->click();
    EXPECT_EQ(grid().Rows(), 2);
    EXPECT_EQ(grid().TextMatrix(1, ColRunNumber), "1");
    EXPECT_EQ(grid().TextMatrix(1, ColSampleId), "S9");
    EXPECT_TRUE(frmORQ().cmdRnTblEdit->isEnabled());
    EXPECT_FALSE(frmORQ().txtSubDir->isHidden());
}

TEST_F(EntryEditTest, RefusedReplaceResetsInjectionsOnly) {
    connect();
    addThenEdit("Calibration Mix", "FRONTSTD", "1", 1);
    FrmRnTblEdit& edit = frmRnTblEdit();
    edit.cboInjVial->setEditText("5");
    edit.txtSampleID->setText(" ");
    edit.btnReplace->click();
    EXPECT_EQ(boxes(), QStringList{text(17264) + ": " + text(17210)});
    EXPECT_EQ(edit.cboInjVial->currentText(), "1");
    EXPECT_EQ(grid().TextMatrix(1, ColSampleId), "S1");
}

TEST_F(EntryEditTest, EditOpensOnlyOnARowStillToCome) {
    connect();
    addThenEdit("Solvent Blank", "FRONTSTD", "2", 1);
    frmRnTblEdit().hide();
    App.GlblCurrentRun = 1;
    const Shown edit{Shown::Modal, {}, {}, {}};
    const Shown refused{Shown::Box, BoxStyle::ExclamationOk, text(17203), text(17262)};
    for (auto [row, expected] : {std::pair{1, refused}, {2, edit}}) {
        SelectRunTableRow(grid(), static_cast<std::int16_t>(row));
        dialogs.shown.clear();
        App.GlblEditOpen = 0;
        emit frmORQ().fgrdRunTable->DblClick();  // a table with runs opens Edit
        EXPECT_EQ(dialogs.shown, std::vector<Shown>{expected}) << row;
        EXPECT_EQ(App.GlblEditOpen, row == 2 ? 1 : 0) << row;
    }
    frmORQ().cmdRnTblEdit->setEnabled(false);  // as during a run: nothing at all
    dialogs.shown.clear();
    frmORQ().cmdRnTblEdit->click();
    emit frmORQ().fgrdRunTable->DblClick();
    EXPECT_TRUE(dialogs.shown.empty());
}

}  // namespace
