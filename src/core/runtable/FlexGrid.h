#pragma once

#include <QString>
#include <cstdint>
#include <vector>

namespace sidekin {

// Colour numbers in the legacy layout: 0x00BBGGRR, or a system colour as
// 0x80000000 plus the system colour's index.
using GridColor = std::uint32_t;
constexpr GridColor SystemColorFlag = 0x80000000u;
constexpr GridColor SysColorWindow = 0x80000005u;
constexpr GridColor SysColorWindowText = 0x80000008u;
constexpr GridColor SysColorButtonFace = 0x8000000Fu;
constexpr GridColor SysColorButtonText = 0x80000012u;
// What a cell never coloured reads; writing it gives the cell its default back.
constexpr GridColor GridDefaultColor = 0;

constexpr GridColor gridRgb(int red, int green, int blue) {
    return GridColor(red & 0xFF) | GridColor(green & 0xFF) << 8 | GridColor(blue & 0xFF) << 16;
}

enum class GridAlignment { Left, Center, Right };

enum GridFillStyle : int {
    FillSingle = 0,  // CellBackColor reaches the current cell only
    FillRepeat = 1,  // ... every cell of the selected block
};

// Told about every change, before and after, so a Qt model can pass it on.
// Rows are grid rows (fixed rows included); blocks are inclusive.
class FlexGridObserver {
public:
    virtual ~FlexGridObserver() = default;
    virtual void rowsAboutToBeInserted(int first, int last) = 0;
    virtual void rowsInserted() = 0;
    virtual void rowsAboutToBeRemoved(int first, int last) = 0;
    virtual void rowsRemoved() = 0;
    virtual void cellsChanged(int top, int left, int bottom, int right) = 0;
    // Column count, alignments or the fixed rows' place change as a whole.
    virtual void aboutToReshape() = 0;
    virtual void reshaped() = 0;
    // A header format was applied: widths follow the header texts now.
    virtual void formatApplied() = 0;
    virtual void selectionChanged() = 0;
};

// The run table's grid: a block of text cells with fixed leading rows and
// columns, a current cell with a selected block, and cell back colours.
// Property names are the legacy grid's. Out-of-range indexes raise error 9,
// invalid values error 5 (RuntimeError).
class FlexGrid {
public:
    explicit FlexGrid(int rows = 1, int cols = 10, int fixedRows = 1, int fixedCols = 2);
    ~FlexGrid();
    FlexGrid(const FlexGrid&) = delete;
    FlexGrid& operator=(const FlexGrid&) = delete;

    // Row count, fixed rows included. Fewer drops rows at the end, more adds empty ones.
    int Rows() const { return static_cast<int>(rows_.size()); }
    void setRows(int rows);
    // Column count: set only by the header format.
    int Cols() const { return cols_; }
    int FixedRows() const { return fixedRows_; }
    int FixedCols() const { return fixedCols_ < cols_ ? fixedCols_ : cols_; }

    // Current cell; writing either makes the selection the current cell alone.
    int Row() const { return row_; }
    void setRow(int row);
    int Col() const { return col_; }
    void setCol(int col);
    // Other end of the selected block.
    int RowSel() const { return rowSel_; }
    void setRowSel(int row);
    int ColSel() const { return colSel_; }
    void setColSel(int col);

    // Cell text by flat index Cols * row + col.
    QString TextArray(int index) const;
    void setTextArray(int index, const QString& text);
    QString TextMatrix(int row, int col) const;
    void setTextMatrix(int row, int col, const QString& text);

    // A row from a tab-joined line: appended, or inserted so that it becomes row index.
    void AddItem(const QString& line);
    void AddItem(const QString& line, int index);
    // Removes a row; the last row below the fixed ones cannot go (error 5).
    void RemoveItem(int index);
    // Empties every cell, fixed ones included, and drops cell colours; Rows stays.
    void Clear();

    // "hdr0|<hdr1|^hdr2|>hdr3": header texts of the first row, one column per
    // field, alignment from the leading mark (none: left).
    void setFormatString(const QString& format);
    QString FormatString() const { return format_; }
    GridAlignment ColAlignment(int col) const;

    int FillStyle() const { return fillStyle_; }
    void setFillStyle(int style);
    // Back colour of the current cell; writing colours the cell or, with
    // FillRepeat, the whole selected block.
    GridColor CellBackColor() const;
    void setCellBackColor(GridColor color);

    // Character set number of the grid's font.
    std::int16_t FontCharset() const { return fontCharset_; }
    void setFontCharset(std::int16_t charset) { fontCharset_ = charset; }

    // Unchecked reads for views: 0 <= row < Rows(), 0 <= col < Cols().
    const QString& cellText(int row, int col) const { return rows_[row].text[col]; }
    GridColor cellBackColor(int row, int col) const {
        const GridRow& r = rows_[row];
        return r.back.empty() ? GridDefaultColor : r.back[col];
    }

    // One observer at a time (the Qt model); nullptr detaches.
    void setObserver(FlexGridObserver* observer) { observer_ = observer; }

private:
    struct GridRow {
        std::vector<QString> text;
        std::vector<GridColor> back;  // empty while no cell of the row is coloured
    };

    GridRow lineToRow(const QString& line) const;
    void checkRow(int row) const;
    void checkCol(int col) const;
    void setCellColor(int row, int col, GridColor color);
    void clampSelection();
    void selectionChanged();

    std::vector<GridRow> rows_;
    std::vector<GridAlignment> alignment_;
    int cols_;
    int fixedRows_;
    int fixedCols_;
    int row_ = 0;
    int col_ = 0;
    int rowSel_ = 0;
    int colSel_ = 0;
    int fillStyle_ = FillSingle;
    std::int16_t fontCharset_ = 0;
    QString format_;
    FlexGridObserver* observer_ = nullptr;
};

}  // namespace sidekin
