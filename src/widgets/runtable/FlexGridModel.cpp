#include "FlexGridModel.h"

#include <QBrush>
#include <QGuiApplication>
#include <QPalette>
#include <algorithm>

namespace sidekin {

QColor gridColorToQColor(GridColor color, const QPalette& palette) {
    if (color & SystemColorFlag) {
        switch (color & 0xFFu) {
            case 5:
                return palette.color(QPalette::Base);
            case 8:
                return palette.color(QPalette::Text);
            case 13:
                return palette.color(QPalette::Highlight);
            case 14:
                return palette.color(QPalette::HighlightedText);
            case 15:
                return palette.color(QPalette::Button);
            case 16:
                return palette.color(QPalette::Dark);
            case 18:
                return palette.color(QPalette::ButtonText);
            case 20:
                return palette.color(QPalette::Light);
            default:
                return palette.color(QPalette::Window);
        }
    }
    return QColor(int(color & 0xFF), int(color >> 8 & 0xFF), int(color >> 16 & 0xFF));
}

FlexGridModel::FlexGridModel(FlexGrid& grid, QObject* parent)
    : QAbstractTableModel(parent), grid_(grid) {
    grid_.setObserver(this);
}

FlexGridModel::~FlexGridModel() { grid_.setObserver(nullptr); }

int FlexGridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : std::max(grid_.Rows() - grid_.FixedRows(), 0);
}

int FlexGridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : grid_.Cols();
}

QModelIndex FlexGridModel::indexOfCell(int row, int col) const {
    return index(row - grid_.FixedRows(), col);
}

QVariant FlexGridModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const int row = gridRow(index);
    const int col = index.column();
    const bool fixed = col < grid_.FixedCols();
    switch (role) {
        case Qt::DisplayRole:
            return grid_.cellText(row, col);
        case Qt::BackgroundRole: {
            GridColor color = grid_.cellBackColor(row, col);
            if (color == GridDefaultColor) color = fixed ? SysColorButtonFace : SysColorWindow;
            return QBrush(gridColorToQColor(color, QGuiApplication::palette()));
        }
        case Qt::ForegroundRole:
            return QBrush(gridColorToQColor(fixed ? SysColorButtonText : SysColorWindowText,
                                            QGuiApplication::palette()));
        case Qt::TextAlignmentRole: {
            const GridAlignment a = grid_.ColAlignment(col);
            const Qt::Alignment h = a == GridAlignment::Left     ? Qt::AlignLeft
                                    : a == GridAlignment::Center ? Qt::AlignHCenter
                                                                 : Qt::AlignRight;
            return int(h | Qt::AlignVCenter);
        }
        case CellBackColorRole:
            return QVariant::fromValue(grid_.cellBackColor(row, col));
        default:
            return {};
    }
}

QVariant FlexGridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || grid_.FixedRows() == 0 || section < 0 ||
        section >= grid_.Cols())
        return QAbstractTableModel::headerData(section, orientation, role);
    switch (role) {
        case Qt::DisplayRole:
            return grid_.cellText(0, section);
        case Qt::TextAlignmentRole:
            return int(Qt::AlignLeft | Qt::AlignVCenter);
        case CellBackColorRole:
            return QVariant::fromValue(grid_.cellBackColor(0, section));
        default:
            return {};
    }
}

Qt::ItemFlags FlexGridModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) return Qt::NoItemFlags;
    // Fixed cells take part in no highlight, as on the legacy grid.
    if (index.column() < grid_.FixedCols()) return Qt::ItemIsEnabled;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable;
}

void FlexGridModel::rowsAboutToBeInserted(int first, int last) {
    beginInsertRows({}, first - grid_.FixedRows(), last - grid_.FixedRows());
}

void FlexGridModel::rowsInserted() { endInsertRows(); }

void FlexGridModel::rowsAboutToBeRemoved(int first, int last) {
    beginRemoveRows({}, first - grid_.FixedRows(), last - grid_.FixedRows());
}

void FlexGridModel::rowsRemoved() { endRemoveRows(); }

void FlexGridModel::cellsChanged(int top, int left, int bottom, int right) {
    const int fixedRows = grid_.FixedRows();
    if (top == 0 && fixedRows > 0) emit headerDataChanged(Qt::Horizontal, left, right);
    top = std::max(top, fixedRows);
    if (top <= bottom) emit dataChanged(indexOfCell(top, left), indexOfCell(bottom, right));
}

void FlexGridModel::aboutToReshape() { beginResetModel(); }

void FlexGridModel::reshaped() { endResetModel(); }

void FlexGridModel::formatApplied() { emit gridFormatApplied(); }

void FlexGridModel::selectionChanged() { emit gridSelectionChanged(); }

}  // namespace sidekin
