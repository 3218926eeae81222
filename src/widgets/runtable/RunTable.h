#pragma once

#include <QComboBox>
#include <QWidget>
#include <cstdint>

#include "FlexGrid.h"
#include "RunTableColumns.h"

namespace sidekin {

// The main window's controls that ClearRunTable disables or hides.
struct RunTableControls {
    QWidget* cmdRnTblEdit;
    QWidget* cmdRnTblDel;
    QWidget* cmdStartPauseResume;
    QWidget* cmdRnTblPrint;
    QWidget* lblSubDir;
    QWidget* txtSubDir;
};

// Header texts 17025..17034 as the grid's format, with the language's font
// character set from text 17320 (also kept in GlblFontCharset).
void SetColumnHeaders(FlexGrid& grid);
// Empty table with headers and nothing selected; the table commands off.
void ClearRunTable(FlexGrid& grid, const RunTableControls& controls);
// No operator chosen; the list read afresh from GlblIniFile's [Operators].
void ClearFrmOrqEntres(QComboBox& cboOperator);

// These run inside their caller's handler and raise into it.
// Column 0 of rows 1 to Rows - 1 gets its row number; the row counter is
// 16-bit, so a table that reaches row 32,767 ends in overflow (error 6).
void RenumberRunTable(FlexGrid& grid);
// Row := row, Col := 0, RowSel := row, ColSel := 1, FillStyle := 1, CellBackColor := color.
void ColorRunTableRow(FlexGrid& grid, std::int16_t row, GridColor color);
// Row := row, Col := 2, RowSel := Row, ColSel := Cols - 1.
void SelectRunTableRow(FlexGrid& grid, std::int16_t row);

// The same on a form that carries the grid and controls by their design names.
template <typename Form>
void ClearRunTable(Form& form) {
    ClearRunTable(form.fgrdRunTable->grid(),
                  RunTableControls{form.cmdRnTblEdit, form.cmdRnTblDel, form.cmdStartPauseResume,
                                   form.cmdRnTblPrint, form.lblSubDir, form.txtSubDir});
}

}  // namespace sidekin
