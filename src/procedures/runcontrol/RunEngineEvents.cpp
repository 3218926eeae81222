#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "AppState.h"
#include "CPLinks.h"
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

void runCompleted() {
    FlexGrid& grid = frmORQ().fgrdRunTable->grid();
    ColorRunTableRow(grid, App.GlblCurrentRun, RnTblColorCompleted);
    const std::int16_t state = App.GlblRunState;
    if (state == RunStateStopping) {
        showRunText(17104);
        clearStatusTime();
        GoToIdleState();
        return;
    }
    if (state != RunStateRunning && state != RunStatePausing) return;
    if (App.GlblCurrentRun >= grid.Rows() - 1) {
        showRunTextAlone(17102);
        clearStatusTime();
        GoToIdleState();
        return;
    }
    if (state == RunStateRunning) {
        App.GlblCurrentRun = add16(App.GlblCurrentRun, 1);
        showRunText(17101);
        // Waits, serving events, until the next run has started.
        ExecuteRun(App.GlblCurrentRun);
    } else {
        App.GlblRunState = RunStatePaused;
        showRunText(17106);
        EnableRnTblChanges();
        FrmOrq& form = frmORQ();
        const std::initializer_list<QWidget*> keptLocked{
            form.cmdRnTblClear, form.lblSubDir, form.txtSubDir, form.lblOperator, form.cboOperator};
        for (QWidget* control : keptLocked) control->setEnabled(false);
    }
    // The walk may have moved on inside ExecuteRun: the row is the current one now.
    SelectRunTableRow(grid, App.GlblCurrentRun);
}

void runAborted() {
    ColorRunTableRow(frmORQ().fgrdRunTable->grid(), App.GlblCurrentRun, RnTblColorAborted);
    showRunText(17107);
    clearStatusTime();
    GoToIdleState();
}

}  // namespace

void UpdateRunEngineStatus() {
    handled("UpdateRunEngineStatus", [] {
        const QString value = Trim(cpLinks().ddeRunEngineStatus->text());
        const QString withoutLineEnd = Left(value, static_cast<int>(value.size()) - 2);
        cpLinks().txtRunEngineStatus->setText(Trim(withoutLineEnd));
    });
}

void DDERunEngineStatus_Change() {
    handled("DDERunEngineStatus_Change", [] {
        applyRunLabelCharset();
        UpdateRunEngineStatus();
        const QString status = cpLinks().txtRunEngineStatus->text();
        const bool walking = App.GlblCurrentRun > 0;
        if (Left(status, 9) == QLatin1String("Completed") && walking) {
            runCompleted();
        } else if ((Left(status, 7) == QLatin1String("Aborted") ||
                    Left(status, 7) == QLatin1String("ABORTED")) &&
                   walking) {
            runAborted();
        } else if (Left(status, 6) == QLatin1String("LOADED")) {
            App.GlblMethodLoaded = 1;
        } else if (Left(status, 7) == QLatin1String("RUNNING")) {
            App.GlblRunStarted = 1;
        }
    });
}

void cmdStop_Click() {
    handled("cmdStop_Click", [] {
        applyRunLabelCharset();
        FrmOrq& form = frmORQ();
        form.cmdStartPauseResume->setText(GetResourceString(17016));
        form.cmdStartPauseResume->setEnabled(false);
        // The caption's text as tip, until GoToIdleState sets the idle tip.
        form.cmdStartPauseResume->setToolTip(GetResourceString(17016));
        form.cmdStop->setEnabled(false);
        if (App.GlblRunState == RunStatePaused) {
            showRunText(17104);
            clearStatusTime();
            GoToIdleState();
            return;
        }
        App.GlblRunState = RunStateStopping;
        showRunText(17103);
    });
}

}  // namespace sidekin
