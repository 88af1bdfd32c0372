// The one widget behind every grid: shows a ResultGrid, keeps its fixed rows and columns in view.
#pragma once

#include <QBasicTimer>
#include <QTableView>
#include <functional>
#include <optional>
#include <vector>

#include "ui/GridGeometry.h"
#include "ui/ResultGrid.h"
#include "ui/qt/GridFonts.h"

namespace ssq {

class GridModel;

// Fixed cells, body and merged cells are painted in one viewport, so that there is one scroll
// state and one selection; the base class gives the item model, the scroll area and the table that
// assistive technology sees. Its header views stay hidden and know nothing of the sizes shown.
class GridView final : public QTableView {
    Q_OBJECT

  public:
    explicit GridView(QWidget* parent = nullptr);
    ~GridView() override;

    const ResultGrid& grid() const;

    // Shows a new grid from its top left; the view takes its own copy.
    void SetGrid(ResultGrid grid);

    // Changes the grid on show in place; scroll position and selection stay. A selection made by
    // the change is brought into view.
    void Edit(const std::function<void(ResultGrid&)>& change);

    // Sent for a press of the left or right button on a cell, fixed ones included, after the
    // selection has moved there. A press on a heading row leaves the selection; a drag from it
    // selects. The second press of a double click is sent too.
    std::function<void(int row, int col, Qt::MouseButton button)> onPress;
    std::function<void(int row, int col)> onDoubleClick;
    // The right button or the menu key: the panel raises its popup at this place of the screen.
    std::function<void(const QPoint& place)> onPopup;
    // The cell under the last press, or that of the menu key: what a popup's entry is about when
    // the press left a selection of several rows as it was. -1 before the first press.
    int pressedRow() const { return pressed_.row; }
    int pressedCol() const { return pressed_.col; }
    // Ctrl+C.
    std::function<void()> onCopy;

    QRect visualRect(const QModelIndex& index) const override;
    QModelIndex indexAt(const QPoint& point) const override;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

    // The hidden headers would answer these, wrongly.
    int rowAt(int y) const = delete;
    int columnAt(int x) const = delete;
    int rowHeight(int row) const = delete;
    int columnWidth(int column) const = delete;
    void setRowHeight(int row, int height) = delete;
    void setColumnWidth(int column, int width) = delete;
    int rowViewportPosition(int row) const = delete;
    int columnViewportPosition(int column) const = delete;

  protected:
    void updateGeometries() override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    int horizontalOffset() const override;
    int verticalOffset() const override;
    bool isIndexHidden(const QModelIndex& index) const override;
    QRegion visualRegionForSelection(const QItemSelection& selection) const override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

    void paintEvent(QPaintEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

  private:
    struct Cell {
        int row = -1;
        int col = -1;
    };

    std::optional<Cell> CellAt(const QPoint& point) const;
    bool IsHeading(const Cell& cell) const;
    double PixelsPerTwip() const;

    void FitColumns();
    void Rebuild();
    void SelectCells(const Cell& anchor, const Cell& corner);
    void ShowSelection();
    void BringIntoView(const Cell& cell);

    void PressLeft(const Cell& cell, bool extend);
    void PressRight(const std::optional<Cell>& cell, const QPoint& place);
    void DragTo(const QPoint& point);
    void EndDrag();
    Cell DragCell(const QPoint& point) const;
    int BorderAt(const QPoint& point) const;
    void ResizeColumn(int col, int pixels);

    std::optional<Cell> KeyTarget(int key, bool control, const Cell& from) const;
    void ShowToolTip(const QPoint& point, const QPoint& place);

    GridModel* model_;
    GridFonts fonts_;
    GridGeometry geometry_;
    std::vector<int> fittedWidths_;  // pixels, per column without a width of its own
    double shownPixelsPerTwip_ = 0;
    Cell pressed_;
    std::optional<Cell> dragAnchor_;
    QPoint dragPoint_;
    bool dragging_ = false;
    int resizingCol_ = -1;
    bool standsAtBottom_ = false;  // before the last change of size
    QBasicTimer autoScroll_;
    bool showingSelection_ = false;
};

}  // namespace ssq
