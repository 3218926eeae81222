#pragma once

#include <QAbstractTableModel>
#include <QColor>

#include "FlexGrid.h"

class QPalette;

namespace sidekin {

// A legacy colour number as a Qt colour; system colours come from the palette.
QColor gridColorToQColor(GridColor color, const QPalette& palette);

// The grid's rows below the fixed ones as a Qt table model: model row r is
// grid row r + FixedRows; the first fixed row is the horizontal header.
// Every grid change reaches the views as the matching row or cell signal.
class FlexGridModel : public QAbstractTableModel, private FlexGridObserver {
    Q_OBJECT
public:
    // The stored colour number of a cell, 0 when never coloured.
    static constexpr int CellBackColorRole = Qt::UserRole + 1;

    explicit FlexGridModel(FlexGrid& grid, QObject* parent = nullptr);
    ~FlexGridModel() override;

    FlexGrid& grid() const { return grid_; }

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    // Grid row of a model index, and the model index of a grid cell (invalid in fixed rows).
    int gridRow(const QModelIndex& index) const { return index.row() + grid_.FixedRows(); }
    QModelIndex indexOfCell(int row, int col) const;

signals:
    void gridSelectionChanged();
    void gridFormatApplied();

private:
    void rowsAboutToBeInserted(int first, int last) override;
    void rowsInserted() override;
    void rowsAboutToBeRemoved(int first, int last) override;
    void rowsRemoved() override;
    void cellsChanged(int top, int left, int bottom, int right) override;
    void aboutToReshape() override;
    void reshaped() override;
    void formatApplied() override;
    void selectionChanged() override;

    FlexGrid& grid_;
};

}  // namespace sidekin
