#include "RunTableCommands.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStringList>

#include "AppState.h"
#include "EntryForms.h"
#include "FlexGridView.h"
#include "FontCharset.h"
#include "FrmOrq.h"
#include "G11n.h"
#include "OperatorChoice.h"
#include "RunTable.h"
#include "platform/ErrorHandler.h"

namespace sidekin {

namespace {

FlexGrid& runTable() { return frmORQ().fgrdRunTable->grid(); }

void exclaim(int messageId, int titleId) {
    dialogs().messageBox(BoxStyle::ExclamationOk, GetResourceString(messageId),
                         GetResourceString(titleId));
}

// The ten cells of a row as one tab-separated line, read through the flat index.
QString rowLine(const FlexGrid& grid, int row) {
    QStringList cells;
    for (int col = 0; col <= 9; ++col) cells << grid.TextArray(row * grid.Cols() + col);
    return cells.join(u'\t');
}

// A move writes the row anew at its place and takes the old one out; only the
// text travels, so the moved row loses its colour.
void moveRow(FlexGrid& grid, int from, int insertAt, int removeAt, int to) {
    grid.AddItem(rowLine(grid, from), insertAt);
    grid.RemoveItem(removeAt);
    RenumberRunTable(grid);
    SelectRunTableRow(grid, static_cast<std::int16_t>(to));
}

}  // namespace

void cmdDown_Click() {
    handled("cmdDomn_Click", [] {
        FlexGrid& grid = runTable();
        const int r = grid.RowSel();
        if (grid.Rows() > 1 && r != grid.Rows() - 1 && r > App.GlblCurrentRun)
            moveRow(grid, r, r + 2, r, r + 1);
    });
}

void cmdUp_Click() {
    handled("cmdUp_Click", [] {
        FlexGrid& grid = runTable();
        const int r = grid.RowSel();
        if (r >= 2 && r > App.GlblCurrentRun + 1) moveRow(grid, r, r - 1, r + 1, r - 1);
    });
}

void cmdRnTblDel_Click() {
    handled("cmdRnTblDel_Clicl", [] {
        FlexGrid& grid = runTable();
        if (grid.RowSel() <= App.GlblCurrentRun) return exclaim(17202, 17261);
        if (grid.Rows() > 2) {
            grid.RemoveItem(grid.RowSel());
            RenumberRunTable(grid);
        } else if (grid.Rows() == 2) {
            ClearRunTable(frmORQ());
        }
    });
}

void cmdRnTblClear_Click() {
    handled("cmdRnTblClear_Click", [] {
        FrmOrq& orq = frmORQ();
        const std::int16_t charset = readFontCharset();
        ClearRunTable(orq);
        orq.cmdRnTblAdd->setEnabled(false);
        ClearFrmOrqEntres(*orq.cboOperator);
        applyFontCharset(*orq.lblCurrentRun, charset);
        orq.lblCurrentRun->setText(GetResourceString(17100));
        orq.lblStatusTime->clear();
    });
}

void cmdRnTblEdit_Click() {
    handled("cmdRnTblEdit_Click", [] {
        FrmOrq& orq = frmORQ();
        if (!orq.cmdRnTblEdit->isEnabled()) return;
        if (runTable().RowSel() <= App.GlblCurrentRun) return exclaim(17203, 17262);
        App.GlblEditOpen = 1;  // Form_Activate of the Edit form fills it from the row, once
        dialogs().showModal(frmRnTblEdit(), &orq);
    });
}

void fgrdRunTable_DblClick() {
    handled("fgrdRunTable_DblClick", [] {
        if (runTable().Rows() > 1)
            cmdRnTblEdit_Click();
        else
            cmdRnTblAdd_Click();
    });
}

void fgrdRunTable_SelChange() {
    handled("fgrdRunTable_SelChange", [] {
        FlexGrid& grid = runTable();
        if (grid.Rows() >= 2 && grid.RowSel() != grid.Row()) grid.setRowSel(grid.Row());
    });
}

}  // namespace sidekin
