#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "AppState.h"
#include "CPLinks.h"
#include "DataFileCheck.h"
#include "FileNameRules.h"
#include "FlexGridView.h"
#include "FrmOrq.h"
#include "G11n.h"
#include "RunControl.h"
#include "RunLabels.h"
#include "RunTable.h"
#include "platform/Conversions.h"
#include "platform/ErrorHandler.h"
#include "platform/LegacyText.h"

namespace sidekin {

namespace {

std::vector<QWidget*> tableChangeControls() {
    FrmOrq& f = frmORQ();
    return {f.cmdRnTblAdd,   f.cmdRnTblEdit,    f.cmdRnTblDel, f.cmdRnTblClear,
            f.cmdRnTblPrint, f.cmdInstructions, f.cmdUp,       f.cmdDown,
            f.lblOperator,   f.cboOperator,     f.lblSubDir,   f.txtSubDir};
}

void setTableChanges(bool enabled) {
    for (QWidget* control : tableChangeControls()) control->setEnabled(enabled);
}

void startBranch() {
    FrmOrq& form = frmORQ();
    FlexGrid& grid = form.fgrdRunTable->grid();
    if (grid.Rows() <= 1) return;
    form.cmdStartPauseResume->setEnabled(false);

    QString subDirectory = form.txtSubDir->text();
    if (!IsValidFileName(subDirectory)) {
        form.cmdStartPauseResume->setEnabled(true);
        dialogs().messageBox(BoxStyle::ExclamationOk, GetResourceString(17205),
                             GetResourceString(17260));
        form.txtSubDir->setFocus();
        form.txtSubDir->selectAll();
        return;
    }
    const QString report = DataFileExits();
    if (!report.isEmpty()) {
        const QString question =
            ReplaceString(GetResourceString(17204), QStringLiteral("<NAME>"), report);
        if (dialogs().messageBox(BoxStyle::ExclamationYesNo, question, GetResourceString(17263)) ==
            BoxAnswer::Yes) {
            form.cmdStartPauseResume->setEnabled(true);
            return;
        }
    }
    for (std::int16_t row = 1; row <= grid.Rows() - 1; row = add16(row, 1))
        ColorRunTableRow(grid, row, RnTblColorNone);
    App.GlblRunState = RunStateRunning;
    App.GlblCurrentRun = 1;
    showRunText(17101);
    DisableRnTblChanges();
    SetRunTableVars();
    ExecuteRun(App.GlblCurrentRun);
    SelectRunTableRow(grid, App.GlblCurrentRun);
    form.cmdStop->setEnabled(true);
    form.cmdStartPauseResume->setEnabled(true);
    setStartButton(17017, 17145);
}

void pauseBranch() {
    App.GlblRunState = RunStatePausing;
    setStartButton(17018, 17146);
    frmORQ().cmdStop->setEnabled(true);
    showRunText(17105);
}

void resumeBranch() {
    FlexGrid& grid = frmORQ().fgrdRunTable->grid();
    if (App.GlblRunState == RunStatePaused) {
        if (App.GlblCurrentRun < grid.Rows() - 1) {
            DisableRnTblChanges();
            App.GlblCurrentRun = add16(App.GlblCurrentRun, 1);
            App.GlblRunState = RunStateRunning;
            SelectRunTableRow(grid, App.GlblCurrentRun);
            setStartButton(17017, 17145);
            showRunText(17101);
            ExecuteRun(App.GlblCurrentRun);
        } else {
            showRunTextAlone(17102);
            clearStatusTime();
            GoToIdleState();
        }
        return;
    }
    setStartButton(17017, 17145);
    frmORQ().cmdStop->setEnabled(true);
    App.GlblRunState = RunStateRunning;
    showRunText(17101);
    DisableRnTblChanges();
}

}  // namespace

void cmdStartPauseResume_Click() {
    handled("cmdStartPauseResume_Click", [] {
        applyRunLabelCharset();
        // The caption is the switch, as the operator sees it.
        const QString caption = frmORQ().cmdStartPauseResume->text();
        if (caption == GetResourceString(17016))
            startBranch();
        else if (caption == GetResourceString(17017))
            pauseBranch();
        else if (caption == GetResourceString(17018))
            resumeBranch();
    });
}

void GoToIdleState() {
    handled("GoToIdleState", [] {
        FrmOrq& form = frmORQ();
        SelectRunTableRow(form.fgrdRunTable->grid(), App.GlblCurrentRun);
        App.GlblCurrentRun = 0;
        App.GlblRunState = RunStateIdle;
        form.cmdStartPauseResume->setText(GetResourceString(17016));
        form.cmdStartPauseResume->setEnabled(true);
        form.cmdStartPauseResume->setToolTip(GetResourceString(17144));
        form.cmdStop->setEnabled(false);
        EnableRnTblChanges();
    });
}

void DisableRnTblChanges() {
    handled("DisableRnTblChanges", [] { setTableChanges(false); });
}

void EnableRnTblChanges() {
    handled("EnableRnTblChanges", [] { setTableChanges(true); });
}

}  // namespace sidekin
