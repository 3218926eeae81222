#include "FlexGrid.h"

#include <QStringList>
#include <algorithm>

#include "RuntimeError.h"

namespace sidekin {

FlexGrid::FlexGrid(int rows, int cols, int fixedRows, int fixedCols)
    : alignment_(std::max(cols, 1), GridAlignment::Left),
      cols_(std::max(cols, 1)),
      fixedRows_(std::max(fixedRows, 0)),
      fixedCols_(std::max(fixedCols, 0)) {
    rows_.resize(std::max(rows, std::max(fixedRows_, 1)));
    for (GridRow& r : rows_) r.text.resize(cols_);
    row_ = rowSel_ = Rows() > fixedRows_ ? fixedRows_ : 0;
    col_ = colSel_ = cols_ > fixedCols_ ? fixedCols_ : 0;
}

FlexGrid::~FlexGrid() = default;

void FlexGrid::checkRow(int row) const {
    if (row < 0 || row >= Rows()) raiseError(ErrSubscript);
}

void FlexGrid::checkCol(int col) const {
    if (col < 0 || col >= cols_) raiseError(ErrSubscript);
}

void FlexGrid::selectionChanged() {
    if (observer_) observer_->selectionChanged();
}

void FlexGrid::clampSelection() {
    const int lastRow = Rows() - 1;
    row_ = std::min(row_, lastRow);
    rowSel_ = std::min(rowSel_, lastRow);
    col_ = std::min(col_, cols_ - 1);
    colSel_ = std::min(colSel_, cols_ - 1);
}

void FlexGrid::setRows(int rows) {
    if (rows < std::max(fixedRows_, 1)) raiseError(ErrInvalidCall);
    const int old = Rows();
    if (rows == old) return;
    if (rows > old) {
        if (observer_) observer_->rowsAboutToBeInserted(old, rows - 1);
        rows_.resize(rows);
        for (int r = old; r < rows; ++r) rows_[r].text.resize(cols_);
        if (observer_) observer_->rowsInserted();
        return;
    }
    if (observer_) observer_->rowsAboutToBeRemoved(rows, old - 1);
    rows_.resize(rows);
    clampSelection();
    if (observer_) {
        observer_->rowsRemoved();
        observer_->selectionChanged();
    }
}

void FlexGrid::setRow(int row) {
    checkRow(row);
    row_ = rowSel_ = row;
    colSel_ = col_;
    selectionChanged();
}

void FlexGrid::setCol(int col) {
    checkCol(col);
    col_ = colSel_ = col;
    rowSel_ = row_;
    selectionChanged();
}

void FlexGrid::setRowSel(int row) {
    checkRow(row);
    rowSel_ = row;
    selectionChanged();
}

void FlexGrid::setColSel(int col) {
    checkCol(col);
    colSel_ = col;
    selectionChanged();
}

QString FlexGrid::TextArray(int index) const {
    if (index < 0 || index / cols_ >= Rows()) raiseError(ErrSubscript);
    return rows_[index / cols_].text[index % cols_];
}

void FlexGrid::setTextArray(int index, const QString& text) {
    if (index < 0 || index / cols_ >= Rows()) raiseError(ErrSubscript);
    setTextMatrix(index / cols_, index % cols_, text);
}

QString FlexGrid::TextMatrix(int row, int col) const {
    checkRow(row);
    checkCol(col);
    return rows_[row].text[col];
}

void FlexGrid::setTextMatrix(int row, int col, const QString& text) {
    checkRow(row);
    checkCol(col);
    rows_[row].text[col] = text;
    if (observer_) observer_->cellsChanged(row, col, row, col);
}

FlexGrid::GridRow FlexGrid::lineToRow(const QString& line) const {
    GridRow row;
    row.text.resize(cols_);
    qsizetype start = 0;
    for (int c = 0; c < cols_; ++c) {
        const qsizetype tab = line.indexOf(QLatin1Char('\t'), start);
        row.text[c] = line.mid(start, tab < 0 ? -1 : tab - start);
        if (tab < 0) break;
        start = tab + 1;
    }
    return row;
}

void FlexGrid::AddItem(const QString& line) { AddItem(line, Rows()); }

void FlexGrid::AddItem(const QString& line, int index) {
    if (index < 0 || index > Rows()) raiseError(ErrSubscript);
    GridRow row = lineToRow(line);
    // A row put above the fixed ones changes what the header shows: no plain insert.
    const bool reshapes = index < fixedRows_;
    if (observer_) {
        if (reshapes)
            observer_->aboutToReshape();
        else
            observer_->rowsAboutToBeInserted(index, index);
    }
    rows_.insert(rows_.begin() + index, std::move(row));
    if (observer_) {
        if (reshapes)
            observer_->reshaped();
        else
            observer_->rowsInserted();
    }
}

void FlexGrid::RemoveItem(int index) {
    checkRow(index);
    if (index < fixedRows_ || Rows() - fixedRows_ <= 1) raiseError(ErrInvalidCall);
    if (observer_) observer_->rowsAboutToBeRemoved(index, index);
    rows_.erase(rows_.begin() + index);
    clampSelection();
    if (observer_) {
        observer_->rowsRemoved();
        observer_->selectionChanged();
    }
}

void FlexGrid::Clear() {
    for (GridRow& r : rows_) {
        std::fill(r.text.begin(), r.text.end(), QString());
        r.back.clear();
    }
    if (observer_) observer_->cellsChanged(0, 0, Rows() - 1, cols_ - 1);
}

void FlexGrid::setFormatString(const QString& format) {
    const QStringList fields = format.split(QLatin1Char('|'));
    std::vector<GridAlignment> alignment(fields.size(), GridAlignment::Left);
    QStringList headers;
    for (qsizetype i = 0; i < fields.size(); ++i) {
        QString field = fields[i];
        if (!field.isEmpty()) {
            const QChar mark = field.front();
            if (mark == QLatin1Char('<') || mark == QLatin1Char('^') || mark == QLatin1Char('>')) {
                alignment[i] = mark == QLatin1Char('<')   ? GridAlignment::Left
                               : mark == QLatin1Char('^') ? GridAlignment::Center
                                                          : GridAlignment::Right;
                field.remove(0, 1);
            }
        }
        headers << field;
    }
    const int cols = static_cast<int>(fields.size());
    const bool reshapes = cols != cols_ || alignment != alignment_;
    if (reshapes && observer_) observer_->aboutToReshape();
    if (cols != cols_) {
        for (GridRow& r : rows_) {
            r.text.resize(cols);
            if (!r.back.empty()) r.back.resize(cols, GridDefaultColor);
        }
        cols_ = cols;
        clampSelection();
    }
    alignment_ = std::move(alignment);
    format_ = format;
    for (int c = 0; c < cols_ && fixedRows_ > 0; ++c) rows_[0].text[c] = headers[c];
    if (observer_) {
        if (reshapes)
            observer_->reshaped();
        else
            observer_->cellsChanged(0, 0, 0, cols_ - 1);
        observer_->formatApplied();
        if (reshapes) observer_->selectionChanged();
    }
}

GridAlignment FlexGrid::ColAlignment(int col) const {
    checkCol(col);
    return alignment_[col];
}

void FlexGrid::setFillStyle(int style) {
    if (style != FillSingle && style != FillRepeat) raiseError(ErrInvalidCall);
    fillStyle_ = style;
}

GridColor FlexGrid::CellBackColor() const { return cellBackColor(row_, col_); }

void FlexGrid::setCellColor(int row, int col, GridColor color) {
    GridRow& r = rows_[row];
    if (r.back.empty()) {
        if (color == GridDefaultColor) return;
        r.back.assign(cols_, GridDefaultColor);
    }
    r.back[col] = color;
}

void FlexGrid::setCellBackColor(GridColor color) {
    if (fillStyle_ == FillSingle) {
        setCellColor(row_, col_, color);
        if (observer_) observer_->cellsChanged(row_, col_, row_, col_);
        return;
    }
    const int top = std::min(row_, rowSel_), bottom = std::max(row_, rowSel_);
    const int left = std::min(col_, colSel_), right = std::max(col_, colSel_);
    for (int r = top; r <= bottom; ++r)
        for (int c = left; c <= right; ++c) setCellColor(r, c, color);
    if (observer_) observer_->cellsChanged(top, left, bottom, right);
}

}  // namespace sidekin
