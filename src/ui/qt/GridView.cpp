#include "ui/qt/GridView.h"

#include <QAbstractButton>
#include <QHeaderView>
#include <QHelpEvent>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>
#include <algorithm>
#include <cmath>

#include "ui/qt/GridModel.h"
#include "ui/qt/GridPainter.h"

namespace ssq {

namespace {

constexpr double kTwipsPerInch = 1440;
constexpr int kFontPoints = 9;  // what the widths that the grids name are made for
constexpr int kDefaultRowTwips = 300;
constexpr int kRowPadding = 2;     // pixels around the font of a row without a height
constexpr int kScrollStepX = 40;   // pixels
constexpr int kGrip = 3;           // pixels on both sides of a border that take hold of it
constexpr int kSmallestWidth = 8;  // pixels
constexpr int kAutoScrollMs = 40;

QFont GridFont(const QFont& base) {
    QFont font = base;
    font.setPointSize(kFontPoints);
    return font;
}

}  // namespace

GridView::GridView(QWidget* parent)
    : QTableView(parent), model_(new GridModel(this)), fonts_(GridFont(font())) {
    setFont(GridFont(font()));
    horizontalHeader()->hide();
    verticalHeader()->hide();
    setCornerButtonEnabled(false);
    // The base class hides the button over the corner in updateGeometries, which is ours.
    for (auto* corner : findChildren<QAbstractButton*>()) corner->hide();
    setEditTriggers(NoEditTriggers);
    setSelectionMode(ContiguousSelection);
    setAutoScroll(false);
    setTabKeyNavigation(false);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerPixel);
    viewport()->setMouseTracking(true);
    setModel(model_);
    Rebuild();
}

GridView::~GridView() = default;

const ResultGrid& GridView::grid() const {
    return model_->grid();
}

void GridView::SetGrid(ResultGrid grid) {
    EndDrag();
    pressed_ = {};
    standsAtBottom_ = false;
    model_->Replace(std::move(grid));
    FitColumns();
    Rebuild();
    horizontalScrollBar()->setValue(0);
    verticalScrollBar()->setValue(0);
    ShowSelection();
}

void GridView::Edit(const std::function<void(ResultGrid&)>& change) {
    const int rowsBefore = grid().rows();
    const CellRange before = SelectedRange(grid());
    model_->Change(change);
    if (grid().rows() != rowsBefore || grid().cols() != static_cast<int>(fittedWidths_.size())) {
        FitColumns();
    }
    Rebuild();
    ShowSelection();
    const bool moved = !(SelectedRange(grid()) == before);
    if (moved && grid().row() >= 0) BringIntoView({grid().row(), grid().col()});
}

double GridView::PixelsPerTwip() const {
    return logicalDpiX() / kTwipsPerInch;
}

void GridView::FitColumns() {
    fittedWidths_.assign(static_cast<std::size_t>(grid().cols()), 0);
    for (int col = 0; col < grid().cols(); ++col) {
        if (grid().colWidth(col)) continue;
        fittedWidths_[static_cast<std::size_t>(col)] = FittedColWidth(grid(), col, fonts_);
    }
    for (const auto& [first, last] : grid().evenCols()) {
        const auto begin = fittedWidths_.begin() + first;
        const auto end = fittedWidths_.begin() + last + 1;
        std::fill(begin, end, *std::max_element(begin, end));
    }
}

void GridView::Rebuild() {
    shownPixelsPerTwip_ = PixelsPerTwip();
    const int defaultHeight = static_cast<int>(std::lround(kDefaultRowTwips * shownPixelsPerTwip_));
    const int fontHeight = fonts_.For(CellStyle{}).metrics.height() + kRowPadding;
    geometry_ = GridGeometry(
        grid(), {shownPixelsPerTwip_, std::max(defaultHeight, fontHeight), fittedWidths_});
    updateGeometries();
    viewport()->update();
}

QRect GridView::visualRect(const QModelIndex& index) const {
    if (!index.isValid() || index.row() >= geometry_.rows().count() ||
        index.column() >= geometry_.cols().count()) {
        return {};
    }
    const PixelRect rect =
        geometry_.CellRect(index.row(), index.column(), horizontalOffset(), verticalOffset());
    return {rect.x, rect.y, rect.width, rect.height};
}

std::optional<GridView::Cell> GridView::CellAt(const QPoint& point) const {
    const Cell cell{geometry_.rows().IndexAt(point.y(), verticalOffset()),
                    geometry_.cols().IndexAt(point.x(), horizontalOffset())};
    if (cell.row < 0 || cell.col < 0) return std::nullopt;
    return cell;
}

QModelIndex GridView::indexAt(const QPoint& point) const {
    const auto cell = CellAt(point);
    return cell ? model_->index(cell->row, cell->col) : QModelIndex();
}

bool GridView::IsHeading(const Cell& cell) const {
    return cell.row < grid().fixedRows();
}

void GridView::scrollTo(const QModelIndex& index, ScrollHint /*hint*/) {
    if (index.isValid()) BringIntoView({index.row(), index.column()});
}

void GridView::BringIntoView(const Cell& cell) {
    horizontalScrollBar()->setValue(
        geometry_.cols().ScrollToShow(cell.col, horizontalOffset(), viewport()->width()));
    verticalScrollBar()->setValue(
        geometry_.rows().ScrollToShow(cell.row, verticalOffset(), viewport()->height()));
}

void GridView::updateGeometries() {
    const auto setUp = [](QScrollBar& bar, const GridAxis& axis, int view, int step) {
        bar.setRange(0, axis.MaxScroll(view));
        bar.setPageStep(std::max(1, view - axis.fixedExtent()));
        bar.setSingleStep(step);
    };
    const int rowStep = static_cast<int>(std::lround(kDefaultRowTwips * PixelsPerTwip()));
    setUp(*horizontalScrollBar(), geometry_.cols(), viewport()->width(), kScrollStepX);
    setUp(*verticalScrollBar(), geometry_.rows(), viewport()->height(), rowStep);
}

// The newest rows stand at the bottom: who looks at them keeps them in view.
void GridView::resizeEvent(QResizeEvent* event) {
    QScrollBar& bar = *verticalScrollBar();
    if (bar.maximum() > 0) standsAtBottom_ = bar.value() == bar.maximum();
    QTableView::resizeEvent(event);
    if (standsAtBottom_) bar.setValue(bar.maximum());
}

void GridView::scrollContentsBy(int /*dx*/, int /*dy*/) {
    viewport()->update();
}

int GridView::horizontalOffset() const {
    return horizontalScrollBar()->value();
}

int GridView::verticalOffset() const {
    return geometry_.rows().Settled(verticalScrollBar()->value());
}

bool GridView::isIndexHidden(const QModelIndex& index) const {
    return grid().hidden(index.column());
}

QRegion GridView::visualRegionForSelection(const QItemSelection& /*selection*/) const {
    return viewport()->rect();
}

void GridView::paintEvent(QPaintEvent* event) {
    const GridScene scene{grid(),
                          geometry_,
                          {horizontalOffset(), verticalOffset()},
                          viewport()->size(),
                          hasFocus(),
                          palette().color(QPalette::Highlight)};
    QPainter painter(viewport());
    GridPainter(scene, fonts_, painter).Paint(event->rect());
}

bool GridView::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QTableView::viewportEvent(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    ShowToolTip(help->pos(), help->globalPos());
    return true;
}

void GridView::ShowToolTip(const QPoint& point, const QPoint& place) {
    const auto cell = CellAt(point);
    if (!cell) return QToolTip::hideText();
    const CellRange range = geometry_.MergedAround(cell->row, cell->col);
    const PixelRect rect = geometry_.VisibleRect(range, horizontalOffset(), verticalOffset(),
                                                 viewport()->width(), viewport()->height());
    // The text of merged cells stands in what can be seen of them, that of one cell in all of it.
    const bool merged = range.top != range.bottom || range.left != range.right;
    const PixelRect textRect =
        merged ? rect
               : geometry_.CellRect(cell->row, cell->col, horizontalOffset(), verticalOffset());
    const QSize size(textRect.width, textRect.height);
    if (!TextIsClipped(grid(), cell->row, cell->col, size, fonts_)) return QToolTip::hideText();
    QToolTip::showText(place, QString::fromStdString(grid().cell(cell->row, cell->col)), viewport(),
                       {rect.x, rect.y, rect.width, rect.height});
}

void GridView::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() != QEvent::FontChange && event->type() != QEvent::StyleChange) return;
    fonts_ = GridFonts(font());
    FitColumns();
    Rebuild();
}

void GridView::showEvent(QShowEvent* event) {
    QTableView::showEvent(event);
    if (PixelsPerTwip() == shownPixelsPerTwip_) return;
    FitColumns();
    Rebuild();
}

// Keys are handled in keyPressEvent. With a cell of the hidden headers' choice the base class
// would move the selection when the grid gets the focus.
QModelIndex GridView::moveCursor(CursorAction /*action*/, Qt::KeyboardModifiers /*modifiers*/) {
    return {};
}

void GridView::SelectCells(const Cell& anchor, const Cell& corner) {
    model_->Select(anchor.row, anchor.col, corner.row, corner.col);
    ShowSelection();
}

void GridView::ShowSelection() {
    showingSelection_ = true;
    const CellRange range = SelectedRange(grid());
    if (range.bottom < range.top) {
        selectionModel()->clear();
    } else {
        const QItemSelection cells(model_->index(range.top, range.left),
                                   model_->index(range.bottom, range.right));
        selectionModel()->select(cells, QItemSelectionModel::ClearAndSelect);
        selectionModel()->setCurrentIndex(model_->index(grid().rowSel(), grid().colSel()),
                                          QItemSelectionModel::NoUpdate);
    }
    showingSelection_ = false;
    viewport()->update();
}

// Assistive technology moves the current cell through the selection model.
void GridView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    if (showingSelection_ || !current.isValid()) return;
    const Cell cell{current.row(), current.column()};
    model_->Select(cell.row, cell.col, cell.row, cell.col);
    BringIntoView(cell);
    viewport()->update();
}

void GridView::mousePressEvent(QMouseEvent* event) {
    event->accept();
    const QPoint point = event->position().toPoint();
    const auto cell = CellAt(point);
    EndDrag();
    if (event->button() == Qt::RightButton) {
        PressRight(cell, event->globalPosition().toPoint());
        return;
    }
    if (event->button() != Qt::LeftButton) return;
    resizingCol_ = BorderAt(point);
    if (resizingCol_ < 0 && cell) PressLeft(*cell, event->modifiers() & Qt::ShiftModifier);
}

void GridView::PressLeft(const Cell& cell, bool extend) {
    pressed_ = cell;
    const bool heading = IsHeading(cell);
    if (extend && grid().row() >= 0 && !heading) {
        dragAnchor_ = Cell{grid().row(), grid().col()};
        SelectCells(*dragAnchor_, cell);
    } else {
        dragAnchor_ = cell;
        if (!heading) SelectCells(cell, cell);
    }
    if (onPress) onPress(cell.row, cell.col, Qt::LeftButton);
}

void GridView::PressRight(const std::optional<Cell>& cell, const QPoint& place) {
    pressed_ = cell.value_or(Cell{});
    if (cell) {
        if (!IsHeading(*cell) && !SelectedRange(grid()).Contains(cell->row, cell->col)) {
            SelectCells(*cell, *cell);
        }
        if (onPress) onPress(cell->row, cell->col, Qt::RightButton);
    }
    if (onPopup) onPopup(place);
}

void GridView::mouseMoveEvent(QMouseEvent* event) {
    event->accept();
    const QPoint point = event->position().toPoint();
    if (!(event->buttons() & Qt::LeftButton)) {
        EndDrag();
        const bool onBorder = event->buttons() == Qt::NoButton && BorderAt(point) >= 0;
        viewport()->setCursor(onBorder ? Qt::SplitHCursor : Qt::ArrowCursor);
        return;
    }
    if (resizingCol_ >= 0) {
        ResizeColumn(resizingCol_,
                     point.x() - geometry_.cols().Begin(resizingCol_, horizontalOffset()));
    } else if (dragAnchor_) {
        DragTo(point);
    }
}

// A drag never takes in the heading rows, or fixed columns it has to scroll towards, unless it
// began there: over them the body scrolls back instead.
GridView::Cell GridView::DragCell(const QPoint& point) const {
    const auto along = [](const GridAxis& axis, int pixel, int scroll, int view, bool takesFixed) {
        const int first = takesFixed ? 0 : std::min(axis.fixedExtent(), view - 1);
        const int last = std::min(axis.extent() - scroll, view) - 1;
        return axis.IndexAt(std::max(0, std::clamp(pixel, std::min(first, last), last)), scroll);
    };
    const bool fixedRows = dragAnchor_->row < grid().fixedRows();
    const bool fixedCols = dragAnchor_->col < grid().fixedCols() || horizontalOffset() == 0;
    return {along(geometry_.rows(), point.y(), verticalOffset(), viewport()->height(), fixedRows),
            along(geometry_.cols(), point.x(), horizontalOffset(), viewport()->width(), fixedCols)};
}

void GridView::DragTo(const QPoint& point) {
    dragPoint_ = point;
    const Cell corner = DragCell(point);
    if (corner.row < 0 || corner.col < 0) return;
    const bool onAnchor = corner.row == dragAnchor_->row && corner.col == dragAnchor_->col;
    if (!dragging_ && onAnchor) return;
    dragging_ = true;
    if (corner.row != grid().rowSel() || corner.col != grid().colSel() ||
        dragAnchor_->row != grid().row() || dragAnchor_->col != grid().col()) {
        SelectCells(*dragAnchor_, corner);
    }
    if (!autoScroll_.isActive()) autoScroll_.start(kAutoScrollMs, this);
}

void GridView::timerEvent(QTimerEvent* event) {
    if (event->timerId() != autoScroll_.timerId()) return QTableView::timerEvent(event);
    const auto beyond = [](int pixel, int begin, int end) {
        return pixel < begin ? pixel - begin : pixel >= end ? pixel - end + 1 : 0;
    };
    const bool fromFixedRows = dragAnchor_->row < grid().fixedRows();
    const bool fromFixedCols = dragAnchor_->col < grid().fixedCols();
    const int top = fromFixedRows ? 0 : geometry_.rows().fixedExtent();
    const int left = fromFixedCols ? 0 : geometry_.cols().fixedExtent();
    const int dx = beyond(dragPoint_.x(), left, viewport()->width());
    const int dy = beyond(dragPoint_.y(), top, viewport()->height());
    if (dx == 0 && dy == 0) return;
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + dx);
    verticalScrollBar()->setValue(verticalScrollBar()->value() + dy);
    DragTo(dragPoint_);
}

void GridView::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
    if (event->button() != Qt::LeftButton) return;
    EndDrag();
}

void GridView::EndDrag() {
    dragging_ = false;
    dragAnchor_.reset();
    resizingCol_ = -1;
    autoScroll_.stop();
}

void GridView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return mousePressEvent(event);
    event->accept();
    const QPoint point = event->position().toPoint();
    const int border = BorderAt(point);
    if (border >= 0) return ResizeColumn(border, FittedColWidth(grid(), border, fonts_));
    const auto cell = CellAt(point);
    if (!cell) return;
    PressLeft(*cell, event->modifiers() & Qt::ShiftModifier);
    if (onDoubleClick) onDoubleClick(cell->row, cell->col);
}

int GridView::BorderAt(const QPoint& point) const {
    if (point.y() >= geometry_.rows().fixedExtent()) return -1;
    for (const int x : {point.x(), point.x() - kGrip}) {
        const int col = geometry_.cols().IndexAt(x, horizontalOffset());
        if (col < 0) continue;
        const int border = geometry_.cols().End(col, horizontalOffset());
        if (std::abs(point.x() - border) <= kGrip) return col;
    }
    return -1;
}

void GridView::ResizeColumn(int col, int pixels) {
    const double twips = std::max(pixels, kSmallestWidth) / PixelsPerTwip();
    model_->SetColWidth(col, static_cast<int>(std::lround(twips)));
    Rebuild();
}

void GridView::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    if (event->reason() != QContextMenuEvent::Keyboard || !onPopup) return;
    QPoint place(0, 0);
    pressed_ = {grid().rowSel(), grid().colSel()};
    if (grid().row() >= 0) {
        BringIntoView(pressed_);
        place = visualRect(model_->index(pressed_.row, pressed_.col)).center();
    }
    onPopup(viewport()->mapToGlobal(place));
}

void GridView::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) {
        if (onCopy) onCopy();
        return;
    }
    const GridAxis& rows = geometry_.rows();
    const GridAxis& cols = geometry_.cols();
    const bool usable = grid().row() >= 0 && rows.First() >= 0 && cols.First() >= 0;
    if (usable && event->matches(QKeySequence::SelectAll)) {
        return SelectCells({rows.First(), 0}, {rows.Last(), cols.Last()});
    }
    const bool extend = event->modifiers() & Qt::ShiftModifier;
    const Cell anchor{grid().row(), grid().col()};
    const Cell from = extend ? Cell{grid().rowSel(), grid().colSel()} : anchor;
    const bool control = event->modifiers() & Qt::ControlModifier;
    const auto target = usable ? KeyTarget(event->key(), control, from) : std::nullopt;
    if (!target) return event->ignore();
    SelectCells(extend ? anchor : *target, *target);
    BringIntoView(*target);
}

std::optional<GridView::Cell> GridView::KeyTarget(int key, bool control, const Cell& from) const {
    const GridAxis& rows = geometry_.rows();
    const GridAxis& cols = geometry_.cols();
    const int page = std::max(1, viewport()->height() - rows.fixedExtent());
    const int row = std::clamp(from.row, rows.First(), rows.Last());
    const int col = std::min(from.col, cols.Last());
    switch (key) {
        case Qt::Key_Up:
            return Cell{control ? rows.First() : rows.Step(from.row, -1, rows.fixed()), col};
        case Qt::Key_Down:
            return Cell{control ? rows.Last() : rows.Step(from.row, 1, rows.fixed()), col};
        case Qt::Key_Left:
            return Cell{row, control ? cols.First() : cols.Step(from.col, -1, 0)};
        case Qt::Key_Right:
            return Cell{row, control ? cols.Last() : cols.Step(from.col, 1, 0)};
        case Qt::Key_Home:
            return Cell{control ? rows.First() : row, cols.First()};
        case Qt::Key_End:
            return Cell{control ? rows.Last() : row, cols.Last()};
        case Qt::Key_PageUp:
            return Cell{rows.PageFrom(from.row, -page), col};
        case Qt::Key_PageDown:
            return Cell{rows.PageFrom(from.row, page), col};
        default:
            return std::nullopt;
    }
}

}  // namespace ssq
