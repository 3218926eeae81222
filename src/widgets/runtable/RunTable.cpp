#include "RunTable.h"

#include <QSignalBlocker>

#include "AppState.h"
#include "G11n.h"
#include "Profile.h"
#include "ProfileKeys.h"
#include "platform/Conversions.h"
#include "platform/ErrorHandler.h"

namespace sidekin {

void SetColumnHeaders(FlexGrid& grid) {
    handled("SetColumnHeaders", [&] {
        App.GlblFontCharset = CInt(Val(GetResourceString(17320)));
        grid.setFontCharset(App.GlblFontCharset);
        QString format = GetResourceString(17025);
        for (std::int32_t id = 17026; id <= 17034; ++id)
            format += QStringLiteral("|<") + GetResourceString(id);
        grid.setFormatString(format);
    });
}

void ClearRunTable(FlexGrid& grid, const RunTableControls& controls) {
    handled("ClearRunTable", [&] {
        grid.Clear();
        grid.setRows(1);
        SetColumnHeaders(grid);
        grid.setRow(0);
        grid.setCol(0);
        grid.setRowSel(0);
        grid.setColSel(0);
        controls.cmdRnTblEdit->setEnabled(false);
        controls.cmdRnTblDel->setEnabled(false);
        controls.cmdStartPauseResume->setEnabled(false);
        controls.cmdRnTblPrint->setEnabled(false);
        controls.lblSubDir->hide();
        controls.txtSubDir->hide();
    });
}

void ClearFrmOrqEntres(QComboBox& cboOperator) {
    handled("ClearFrmOrqEntres", [&] {
        // Filling a list raises no click event on the legacy platform; Qt's
        // index signals would reach the operator's click handler.
        const QSignalBlocker quiet(cboOperator);
        App.GlblOperator.clear();
        cboOperator.clear();
        const std::int16_t count =
            CInt(Val(GetPvtProfileStr(profile::Operators, profile::NumOperators, App.GlblIniFile)));
        for (std::int16_t i = 1; i <= count; i = add16(i, 1))
            cboOperator.addItem(GetPvtProfileStr(
                profile::Operators, profile::OperatorPrefix + QString::number(i), App.GlblIniFile));
        cboOperator.setCurrentIndex(-1);
    });
}

void RenumberRunTable(FlexGrid& grid) {
    const std::int16_t last = toInt16(std::int64_t(grid.Rows()) - 1);
    for (std::int16_t i = 1; i <= last; i = add16(i, 1))
        grid.setTextArray(grid.Cols() * i + ColRunNumber, QString::number(i));
}

void ColorRunTableRow(FlexGrid& grid, std::int16_t row, GridColor color) {
    grid.setRow(row);
    grid.setCol(0);
    grid.setRowSel(row);
    grid.setColSel(1);
    grid.setFillStyle(FillRepeat);
    grid.setCellBackColor(color);
}

void SelectRunTableRow(FlexGrid& grid, std::int16_t row) {
    grid.setRow(row);
    grid.setCol(2);
    grid.setRowSel(grid.Row());
    grid.setColSel(grid.Cols() - 1);
}

}  // namespace sidekin
