#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "AppState.h"
#include "Counters.h"
#include "EntryFormProcedures.h"
#include "EntryFormTools.h"
#include "EntryForms.h"
#include "EntryValidation.h"
#include "FileNameRules.h"
#include "FlexGridView.h"
#include "FrmOrq.h"
#include "MethodSelection.h"
#include "Profile.h"
#include "RunTable.h"
#include "platform/Conversions.h"
#include "platform/ErrorHandler.h"
#include "platform/ListControls.h"

namespace sidekin {

namespace {

FlexGrid& runTable() { return frmORQ().fgrdRunTable->grid(); }

void showRow(FlexGrid& grid, int row) {
    SelectRunTableRow(grid, toInt16(row));
    std::int16_t selected = toInt16(grid.RowSel());
    AddEntryToForm(frmRnTblEdit(), selected);
}

}  // namespace

void Form_Activate() {
    handled("Form_Activate", [] {
        if (App.GlblEditOpen != 1) return;
        std::int16_t row = toInt16(runTable().RowSel());
        AddEntryToForm(frmRnTblEdit(), row);
        App.GlblEditOpen = 0;
    });
}

void btnNext_Click() {
    handled("btnNext_Click", [] {
        FlexGrid& grid = runTable();
        if (grid.RowSel() == grid.Rows() - 1 || grid.Rows() <= 1) return;
        showRow(grid, grid.RowSel() + 1);
    });
}

void btnPrevious_Click() {
    handled("btnPrevious_Click", [] {
        FlexGrid& grid = runTable();
        if (grid.RowSel() <= App.GlblCurrentRun || grid.RowSel() <= 1) return;
        showRow(grid, grid.RowSel() - 1);
    });
}

void btnReplace_Click() {
    handled("btnReplace_Click", [] {
        FrmRnTblEdit& form = frmRnTblEdit();
        FrmOrq& orq = frmORQ();
        FlexGrid& grid = runTable();
        if (grid.Rows() <= 1) return;
        QLineEdit& dataFile = *form.txtDataFile;
        const QString sample = form.cboSample->currentText();
        const QString method = form.cboMethod->currentText();
        const QString ignoreSelected = QStringLiteral("IgSelRow");
        if (GetPvtProfileStr(pairSection(form), profile::DataFileNaming, App.GlblIniFile) ==
            profile::PrefixCounter) {
            const auto next = [&] {
                dataFile.setText(GetNextFileName(dataFile.text(), sample, method));
            };
            const GridColor colour = grid.CellBackColor();
            const bool completed = colour == RnTblColorCompleted;
            const bool aborted = colour == RnTblColorAborted;
            const bool unique = FileNameUniqueToTable(dataFile.text(), ignoreSelected);
            if (completed || aborted || !unique) {
                next();
                const std::int32_t max = GetDataFileCountMax(sample, method);
                std::int32_t tries = 1;
                while (!FileNameUniqueToTable(dataFile.text(), ignoreSelected) && tries <= max) {
                    next();
                    ++tries;
                }
                if (tries > max) {
                    exclaim(17223, 17263);
                    return;
                }
            } else if (grid.TextArray(grid.Cols() * grid.RowSel() + ColDataFile) !=
                       dataFile.text()) {
                next();
            }
        }
        const QString info = sampleInfoText(form);  // before the checks, unlike Add
        if (!ValidRunTableEntries(orq, form)) {
            setListText(*form.cboInjVial, QStringLiteral("1"));
            return;
        }
        const std::int16_t row = toInt16(grid.RowSel());
        const QString line = runTableLine(form, row, info);
        if (grid.Rows() == 2) {
            // The grid cannot lose its last row.
            ClearRunTable(orq);
            for (QWidget* command :
                 {orq.cmdRnTblEdit, orq.cmdRnTblDel, orq.cmdStartPauseResume, orq.cmdRnTblPrint})
                command->setEnabled(true);
            orq.lblSubDir->show();
            orq.txtSubDir->show();
        } else {
            grid.RemoveItem(row);
        }
        grid.AddItem(line, row);
        RenumberRunTable(grid);
        SelectRunTableRow(grid, row);
    });
}

}  // namespace sidekin
