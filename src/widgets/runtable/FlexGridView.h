#pragma once

#include <QTableView>
#include <memory>

#include "FlexGrid.h"
#include "FlexGridModel.h"

class QProxyStyle;

namespace sidekin {

class FixedColumnsView;

// The grid on screen: the first fixed row as the column header, the fixed
// columns in an overlay that stays put while the other columns scroll.
// The grid is the truth; the shown selection follows it at the next event turn.
// The operator's mouse or keys move the grid's selection and raise SelChange.
class FlexGridView : public QTableView {
    Q_OBJECT
public:
    explicit FlexGridView(QWidget* parent = nullptr);
    ~FlexGridView() override;

    FlexGrid& grid() { return grid_; }
    const FlexGrid& grid() const { return grid_; }
    FlexGridModel& gridModel() { return model_; }
    QTableView* fixedColumnsView() const;
    // Settles pending selection work now instead of at the next event turn.
    void syncSelection();
    // Keeps a scrolling column clear of the fixed ones.
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

signals:
    // The operator changed the selected block.
    void SelChange();
    void DblClick();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void updateGeometries() override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    friend class FixedColumnsView;
    template <typename Handler>
    void asOperator(Handler&& handler);
    void operatorDoubleClicked();
    void viewSelectionMoved();
    void gridSelectionMoved();
    void scheduleSync();
    void pullSelection();
    void pushSelection();
    void applyFormatWidths();
    void layoutFixedColumns();
    void updateFixedGeometry();
    int fixedWidth() const;

    FlexGrid grid_;
    FlexGridModel model_;
    std::unique_ptr<QProxyStyle> style_;
    FixedColumnsView* fixed_ = nullptr;
    int operatorInput_ = 0;
    bool pushing_ = false;
    bool syncQueued_ = false;
    bool inSync_ = false;
    bool pullPending_ = false;
    bool pushPending_ = false;
};

}  // namespace sidekin
