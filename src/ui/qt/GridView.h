// The one widget behind every grid: shows a ResultGrid, keeps its fixed rows and columns in view.
#pragma once

#include <QBasicTimer>
#include <QTableView>
#include <functional>
#include <optional>
#include <vector>

#include "ui/GridGeometry.h"
#include "ui/GridOrder.h"
#include "ui/ResultGrid.h"
#include "ui/qt/GridFonts.h"
#include "ui/qt/GridPicture.h"

class QLabel;

namespace ssq {

class GridModel;

// Fixed cells, body and merged cells are painted in one viewport, so that there is one scroll
// state and one selection; the base class gives the item model, the scroll area and the table that
// assistive technology sees. Its header views stay hidden and know nothing of the sizes shown.
//
// A press on a lowest heading sorts what is shown, unless the grid has `onPress`, whose matter its
// headings then are. All rows that come in or go out here are those of the grid as it was given,
// whatever stands on screen; only the item model holds the rows as they are shown.
class GridView final : public QTableView {
    Q_OBJECT

  public:
    explicit GridView(QWidget* parent = nullptr);
    ~GridView() override;

    // In the order it was given; the selection's two corners are in rows of that order.
    const ResultGrid& grid() const { return sort_ ? given_ : shown(); }
    // As it stands on screen.
    const ResultGrid& shown() const;
    // The selected rows of grid(), ascending; where the view is sorted they need not be neighbours.
    std::vector<int> SelectedRows() const;
    // Where a cell of grid() stands in the item model.
    QModelIndex IndexOf(int row, int col) const;
    // The column that the view is sorted by.
    std::optional<int> sortedCol() const;

    // Shows a new grid from its top left; the view takes its own copy.
    void SetGrid(ResultGrid grid);

    // Changes the grid on show in place; scroll position and selection stay. A selection made by
    // the change is brought into view.
    void Edit(const std::function<void(ResultGrid&)>& change);

    // Percent, 75 to 200 in the steps that Ctrl and the wheel take.
    int zoom() const { return zoom_; }
    void SetZoom(int percent);
    void StepZoom(int direction);

    // Marks all cells that hold the text, none for an empty one. Answers how many there are.
    int Find(const QString& text);
    int hitCount() const { return static_cast<int>(hits_.size()); }
    // Goes to the next hit behind the selected cell, or the one before it, round the ends. Its
    // number from 1, 0 without hits.
    int GoToHit(bool forwards);

    // How a picture of shown() looks as it does here.
    PictureLook Look() const;

    // Shades the row and the column under the pointer: for charts, whose cells are far from their
    // headings.
    void SetCrosshair() { crosshair_ = true; }

    // What a grid without rows shows instead: a sentence, and a link that does the step.
    void SetEmptyHint(const QString& sentence, const QString& link, std::function<void()> step);

    // A word for the strip beside the grid.
    void Tell(const QString& text) const;
    std::function<void(const QString& text)> onTell;
    // The selection, the texts, the order or the zoom changed.
    std::function<void()> onChange;

    // Sent for a press of the left or right button on a cell, fixed ones included, after the
    // selection has moved there. A press on a heading row leaves the selection; a drag from it
    // selects. The second press of a double click is sent too. The space key presses the left
    // button on the selected cell, Enter double clicks it.
    std::function<void(int row, int col, Qt::MouseButton button)> onPress;
    std::function<void(int row, int col)> onDoubleClick;
    // The right button or the menu key: the panel raises its popup at this place of the screen.
    std::function<void(const QPoint& place)> onPopup;
    // The cell under the last press, or that of the menu key: what a popup's entry is about when
    // the press left a selection of several rows as it was. -1 before the first press.
    int pressedRow() const { return GivenRow(pressed_.row); }
    int pressedCol() const { return pressed_.col; }
    // Ctrl+C, and Ctrl+Shift+C for the table with its headings.
    std::function<void()> onCopy;
    std::function<void()> onCopyTable;

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
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

  private:
    struct Cell {
        int row = -1;
        int col = -1;

        bool operator==(const Cell&) const = default;
    };
    struct Sort {
        int col;
        bool descending;
    };

    std::optional<Cell> CellAt(const QPoint& point) const;
    bool IsHeading(const Cell& cell) const;
    double PixelsPerTwip() const;

    int GivenRow(int row) const;
    int ShownRow(int row) const;
    void TakeSelection();
    void PutInOrder();
    void PressHeading(const QPoint& point);

    void SetFonts();
    void FitColumns();
    void Rebuild();
    void FindAgain();
    void PlaceEmptyHint();
    void PaintFrame();
    void Hover(const std::optional<Cell>& cell);
    QRegion CrossRegion() const;
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

    bool RunKey(QKeyEvent* event);
    std::optional<Cell> KeyTarget(int key, bool control, const Cell& from) const;
    void ShowToolTip(const QPoint& point, const QPoint& place);

    GridModel* model_;
    ResultGrid given_;        // while the view is sorted
    std::vector<int> order_;  // the same time: the row of given_ for each row shown
    std::optional<Sort> sort_;
    int scrollBeforeSort_ = 0;
    int zoom_ = 100;
    std::string wanted_;
    std::vector<CellPlace> hits_;  // in rows as shown
    QLabel* emptyHint_ = nullptr;
    bool crosshair_ = false;
    std::optional<Cell> hovered_;
    QPoint hoverPoint_;
    std::optional<Cell> pressedHeading_;
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
