#include "FlexGridView.h"

#include <QHeaderView>
#include <QItemSelectionModel>
#include <QMouseEvent>
#include <QProxyStyle>
#include <QScrollBar>
#include <algorithm>
#include <climits>

namespace sidekin {

namespace {

class GridLineStyle : public QProxyStyle {
public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override {
        if (hint == SH_Table_GridLineColor) return static_cast<int>(qRgb(192, 192, 192));
        return QProxyStyle::styleHint(hint, option, widget, data);
    }
};

void configure(QTableView& view, QStyle* style) {
    view.setStyle(style);
    view.verticalHeader()->hide();
    view.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    view.horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    view.horizontalHeader()->setSectionsClickable(false);
    view.horizontalHeader()->setHighlightSections(false);
    view.setSelectionMode(QAbstractItemView::ContiguousSelection);
    view.setSelectionBehavior(QAbstractItemView::SelectItems);
    view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    view.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    view.setWordWrap(false);
}

}  // namespace

// The fixed columns, laid over the left of the main view and sharing its
// model, selection and vertical scrolling.
class FixedColumnsView : public QTableView {
public:
    explicit FixedColumnsView(FlexGridView* owner) : QTableView(owner), owner_(owner) {}

protected:
    void mousePressEvent(QMouseEvent* e) override {
        owner_->asOperator([&] { QTableView::mousePressEvent(e); });
    }
    void mouseMoveEvent(QMouseEvent* e) override {
        owner_->asOperator([&] { QTableView::mouseMoveEvent(e); });
    }
    void mouseReleaseEvent(QMouseEvent* e) override {
        owner_->asOperator([&] { QTableView::mouseReleaseEvent(e); });
    }
    void mouseDoubleClickEvent(QMouseEvent* e) override {
        owner_->asOperator([&] { QTableView::mouseDoubleClickEvent(e); });
        owner_->operatorDoubleClicked();
    }

private:
    FlexGridView* owner_;
};

template <typename Handler>
void FlexGridView::asOperator(Handler&& handler) {
    ++operatorInput_;
    try {
        handler();
    } catch (...) {
        --operatorInput_;
        throw;
    }
    --operatorInput_;
}

FlexGridView::FlexGridView(QWidget* parent)
    : QTableView(parent), model_(grid_), style_(std::make_unique<GridLineStyle>()) {
    setObjectName(QStringLiteral("fgrdRunTable"));
    setToolTip(QStringLiteral("Select Add Run to add run to table"));
    QPalette outside = palette();
    outside.setColor(QPalette::Base, QColor(128, 128, 128));
    setPalette(outside);

    setModel(&model_);
    configure(*this, style_.get());
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);

    fixed_ = new FixedColumnsView(this);
    fixed_->setModel(&model_);
    configure(*fixed_, style_.get());
    fixed_->setSelectionModel(selectionModel());
    fixed_->setFocusPolicy(Qt::NoFocus);
    fixed_->setFrameStyle(QFrame::NoFrame);
    fixed_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    fixed_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    fixed_->verticalHeader()->setDefaultSectionSize(verticalHeader()->defaultSectionSize());
    viewport()->stackUnder(fixed_);
    fixed_->show();

    // The header row is the grid's row 0: a double click there is the grid's too.
    for (QTableView* view : {static_cast<QTableView*>(this), static_cast<QTableView*>(fixed_)})
        connect(view->horizontalHeader(), &QHeaderView::sectionDoubleClicked, this,
                [this] { operatorDoubleClicked(); });

    connect(fixed_->verticalScrollBar(), &QAbstractSlider::valueChanged, verticalScrollBar(),
            &QAbstractSlider::setValue);
    connect(verticalScrollBar(), &QAbstractSlider::valueChanged, fixed_->verticalScrollBar(),
            &QAbstractSlider::setValue);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this,
            [this](int logical, int, int size) {
                if (fixed_ && logical < grid_.FixedCols()) {
                    fixed_->setColumnWidth(logical, size);
                    updateFixedGeometry();
                }
            });
    connect(&model_, &QAbstractItemModel::modelReset, this, &FlexGridView::layoutFixedColumns);
    connect(&model_, &FlexGridModel::gridFormatApplied, this, &FlexGridView::applyFormatWidths);
    connect(&model_, &FlexGridModel::gridSelectionChanged, this, &FlexGridView::gridSelectionMoved);
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &FlexGridView::viewSelectionMoved);
    connect(selectionModel(), &QItemSelectionModel::currentChanged, this,
            &FlexGridView::viewSelectionMoved);

    layoutFixedColumns();
    pushSelection();
}

FlexGridView::~FlexGridView() {
    // The overlay and the base class must let go of the model and style before they go.
    delete fixed_;
    fixed_ = nullptr;
    setModel(nullptr);
    setStyle(nullptr);
}

QTableView* FlexGridView::fixedColumnsView() const { return fixed_; }

int FlexGridView::fixedWidth() const {
    int width = 0;
    for (int c = 0; c < grid_.FixedCols(); ++c) width += columnWidth(c);
    return width;
}

void FlexGridView::updateFixedGeometry() {
    if (!fixed_) return;
    fixed_->setGeometry(viewport()->x(), frameWidth(), fixedWidth(),
                        viewport()->height() + horizontalHeader()->height());
}

void FlexGridView::layoutFixedColumns() {
    if (!fixed_) return;
    const int fixedCols = grid_.FixedCols();
    for (int c = 0; c < model_.columnCount(); ++c) {
        fixed_->setColumnHidden(c, c >= fixedCols);
        if (c < fixedCols) fixed_->setColumnWidth(c, columnWidth(c));
    }
    updateFixedGeometry();
}

void FlexGridView::applyFormatWidths() {
    for (int c = 0; c < model_.columnCount(); ++c)
        setColumnWidth(c, std::max(horizontalHeader()->sectionSizeHint(c),
                                   horizontalHeader()->minimumSectionSize()));
    layoutFixedColumns();
}

void FlexGridView::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    updateFixedGeometry();
}

void FlexGridView::updateGeometries() {
    QTableView::updateGeometries();
    updateFixedGeometry();
}

void FlexGridView::scrollTo(const QModelIndex& index, ScrollHint hint) {
    QTableView::scrollTo(index, hint);
    if (!index.isValid() || index.column() < grid_.FixedCols()) return;
    // Scrolling columns must not end up under the fixed overlay.
    const int left = visualRect(index).left();
    if (left < fixedWidth())
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() - (fixedWidth() - left));
}

void FlexGridView::mousePressEvent(QMouseEvent* e) {
    asOperator([&] { QTableView::mousePressEvent(e); });
}

void FlexGridView::mouseMoveEvent(QMouseEvent* e) {
    asOperator([&] { QTableView::mouseMoveEvent(e); });
}

void FlexGridView::mouseReleaseEvent(QMouseEvent* e) {
    asOperator([&] { QTableView::mouseReleaseEvent(e); });
}

void FlexGridView::mouseDoubleClickEvent(QMouseEvent* e) {
    asOperator([&] { QTableView::mouseDoubleClickEvent(e); });
    operatorDoubleClicked();
}

void FlexGridView::keyPressEvent(QKeyEvent* e) {
    asOperator([&] { QTableView::keyPressEvent(e); });
}

void FlexGridView::operatorDoubleClicked() {
    // The double-click handler reads the selection the click made.
    syncSelection();
    emit DblClick();
}

void FlexGridView::viewSelectionMoved() {
    if (pushing_ || operatorInput_ == 0) return;
    pullPending_ = true;
    scheduleSync();
}

void FlexGridView::gridSelectionMoved() {
    pushPending_ = true;
    if (!inSync_) scheduleSync();
}

void FlexGridView::scheduleSync() {
    if (syncQueued_) return;
    syncQueued_ = true;
    QMetaObject::invokeMethod(this, &FlexGridView::syncSelection, Qt::QueuedConnection);
}

void FlexGridView::syncSelection() {
    syncQueued_ = false;
    if (pullPending_) {
        pullPending_ = false;
        inSync_ = true;
        try {
            pullSelection();
        } catch (...) {
            inSync_ = false;
            throw;
        }
        inSync_ = false;
    }
    if (pushPending_) {
        pushPending_ = false;
        pushSelection();
    }
}

void FlexGridView::pullSelection() {
    const QModelIndex current = selectionModel()->currentIndex();
    if (!current.isValid()) {
        pushPending_ = true;
        return;
    }
    const int fixedRows = grid_.FixedRows();
    const int fixedCols = grid_.FixedCols();
    const int cols = grid_.Cols();
    int top = INT_MAX, bottom = -1, left = INT_MAX, right = -1;
    for (const QItemSelectionRange& range : selectionModel()->selection()) {
        top = std::min(top, range.top());
        bottom = std::max(bottom, range.bottom());
        left = std::min(left, range.left());
        right = std::max(right, range.right());
    }
    // Qt's current cell is the moving end of the block: the grid's RowSel, ColSel.
    int rowSel = current.row(), colSel = current.column();
    int row = rowSel, col = colSel;
    if (bottom >= 0) {
        row = rowSel == top ? bottom : top;
        col = colSel == left ? right : left;
    }
    if (colSel < fixedCols) {
        // A pick in the fixed columns takes the row's scrolling cells.
        col = std::min(fixedCols, cols - 1);
        colSel = cols - 1;
    }
    row += fixedRows;
    rowSel += fixedRows;
    if (row == grid_.Row() && col == grid_.Col() && rowSel == grid_.RowSel() &&
        colSel == grid_.ColSel())
        return;
    grid_.setRow(row);
    grid_.setCol(col);
    grid_.setRowSel(rowSel);
    grid_.setColSel(colSel);
    emit SelChange();
}

void FlexGridView::pushSelection() {
    const int fixedRows = grid_.FixedRows();
    const int top = std::max(std::min(grid_.Row(), grid_.RowSel()), fixedRows);
    const int bottom = std::max(grid_.Row(), grid_.RowSel());
    const int left = std::min(grid_.Col(), grid_.ColSel());
    const int right = std::max(grid_.Col(), grid_.ColSel());
    QItemSelection selection;
    if (top <= bottom)
        selection.select(model_.indexOfCell(top, left), model_.indexOfCell(bottom, right));
    const QModelIndex current = grid_.RowSel() >= fixedRows
                                    ? model_.indexOfCell(grid_.RowSel(), grid_.ColSel())
                                    : QModelIndex();
    pushing_ = true;
    selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    pushing_ = false;
}

}  // namespace sidekin
