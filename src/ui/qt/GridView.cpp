#include "ui/qt/GridView.h"

#include <QAbstractButton>
#include <QHeaderView>
#include <QHelpEvent>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "ui/qt/GridModel.h"
#include "ui/qt/GridPainter.h"
#include "ui/qt/PanelContext.h"
#include "ui/qt/Qs.h"

namespace ssq {

namespace {

constexpr double kTwipsPerInch = 1440;
constexpr int kFontPoints = 9;     // what the widths that the grids name are made for
constexpr int kScrollStepX = 40;   // pixels
constexpr int kGrip = 3;           // pixels on both sides of a border that take hold of it
constexpr int kSmallestWidth = 8;  // pixels
constexpr int kAutoScrollMs = 40;
constexpr int kFrame = 1;                                              // pixels
constexpr std::array kZooms = {75, 90, 100, 110, 125, 150, 175, 200};  // percent

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
    setFrameStyle(Box | Plain);
    setLineWidth(kFrame);
    viewport()->setMouseTracking(true);
    setModel(model_);
    Rebuild();
}

GridView::~GridView() = default;

const ResultGrid& GridView::shown() const {
    return model_->grid();
}

void GridView::SetGrid(ResultGrid grid) {
    EndDrag();
    pressed_ = {};
    hovered_.reset();
    standsAtBottom_ = false;
    sort_.reset();
    order_.clear();
    given_ = {};
    model_->Replace(std::move(grid));
    FitColumns();
    Rebuild();
    horizontalScrollBar()->setValue(0);
    verticalScrollBar()->setValue(0);
    ShowSelection();
}

void GridView::Edit(const std::function<void(ResultGrid&)>& change) {
    const int rowsBefore = shown().rows();
    const CellRange before = SelectedRange(grid());
    if (sort_) {
        change(given_);
        if (sort_->col >= given_.cols()) sort_.reset();
        PutInOrder();
    } else {
        model_->Change(change);
    }
    if (shown().rows() != rowsBefore || shown().cols() != static_cast<int>(fittedWidths_.size())) {
        FitColumns();
    }
    Rebuild();
    ShowSelection();
    const bool moved = !(SelectedRange(grid()) == before);
    if (moved && shown().row() >= 0) BringIntoView({shown().row(), shown().col()});
}

int GridView::GivenRow(int row) const {
    return order_.empty() || row < 0 ? row : order_[static_cast<std::size_t>(row)];
}

int GridView::ShownRow(int row) const {
    if (order_.empty()) return row;
    const auto found = std::ranges::find(order_, row);
    return found == order_.end() ? -1 : static_cast<int>(found - order_.begin());
}

QModelIndex GridView::IndexOf(int row, int col) const {
    return model_->index(ShownRow(row), col);
}

std::optional<int> GridView::sortedCol() const {
    return sort_ ? std::optional(sort_->col) : std::nullopt;
}

std::vector<int> GridView::SelectedRows() const {
    std::vector<int> rows = ssq::SelectedRows(shown());
    for (int& row : rows) row = GivenRow(row);
    std::ranges::sort(rows);
    return rows;
}

// The grid as given learns where the selection stands.
void GridView::TakeSelection() {
    if (!sort_) return;
    const ResultGrid& seen = shown();
    given_.Select(GivenRow(seen.row()), seen.col(), GivenRow(seen.rowSel()), seen.colSel());
}

// Shows the grid as given in the order wished, or as it stands without one.
void GridView::PutInOrder() {
    if (!sort_) {
        order_.clear();
        model_->Replace(std::exchange(given_, {}));
        return;
    }
    order_ = SortedRows(given_, sort_->col, sort_->descending);
    ResultGrid sorted = given_.Reordered(order_);
    sorted.Select(ShownRow(given_.row()), given_.col(), ShownRow(given_.rowSel()), given_.colSel());
    model_->Replace(std::move(sorted));
}

// The first press sorts upwards, the second downwards, the third shows the grid as it was.
void GridView::PressHeading(const QPoint& point) {
    const auto pressed = std::exchange(pressedHeading_, std::nullopt);
    if (!pressed || dragging_ || pressed != CellAt(point)) return;
    const CellRange heading = geometry_.MergedAround(pressed->row, pressed->col);
    const int lowest = shown().fixedRows() - 1;
    if (heading.bottom != lowest || heading.left != heading.right) return;
    if (!sort_) {
        if (shown().footRow.value_or(shown().rows()) <= shown().fixedRows() + 1) return;
        scrollBeforeSort_ = verticalScrollBar()->value();
        given_ = shown();
    }
    const bool again = sort_ && sort_->col == heading.left;
    if (again && sort_->descending) {
        sort_.reset();
    } else {
        sort_ = Sort{heading.left, again};
    }
    PutInOrder();
    Rebuild();
    ShowSelection();
    verticalScrollBar()->setValue(sort_ ? 0 : scrollBeforeSort_);
}

void GridView::SetZoom(int percent) {
    percent = std::clamp(percent, kZooms.front(), kZooms.back());
    if (percent == zoom_) return;
    const GridAxis& rows = geometry_.rows();
    const GridAxis& cols = geometry_.cols();
    const bool atBottom = verticalScrollBar()->value() == verticalScrollBar()->maximum();
    const int top = rows.IndexAt(rows.fixedExtent(), verticalOffset());
    const int left = cols.IndexAt(cols.fixedExtent(), horizontalOffset());
    zoom_ = percent;
    SetFonts();
    FitColumns();
    Rebuild();
    const auto begin = [](const GridAxis& axis, int index) {
        return index < 0 ? 0 : axis.Begin(index, 0) - axis.fixedExtent();
    };
    verticalScrollBar()->setValue(atBottom ? verticalScrollBar()->maximum() : begin(rows, top));
    horizontalScrollBar()->setValue(begin(cols, left));
    if (onChange) onChange();
}

void GridView::StepZoom(int direction) {
    const auto at = std::ranges::lower_bound(kZooms, zoom_);
    if (direction < 0 && at != kZooms.begin()) SetZoom(*std::prev(at));
    if (direction > 0 && std::next(at) != kZooms.end()) SetZoom(*std::next(at));
}

int GridView::Find(const QString& text) {
    wanted_ = text.toStdString();
    FindAgain();
    viewport()->update();
    return static_cast<int>(hits_.size());
}

void GridView::FindAgain() {
    hits_ = FindCells(shown(), geometry_, wanted_);
}

PictureLook GridView::Look() const {
    return {font(), zoom_ / 100.0, PixelsPerTwip(), devicePixelRatioF()};
}

int GridView::GoToHit(bool forwards) {
    if (hits_.empty()) return 0;
    const CellPlace from{shown().row(), shown().col()};
    auto hit =
        forwards ? std::ranges::upper_bound(hits_, from) : std::ranges::lower_bound(hits_, from);
    if (forwards && hit == hits_.end()) hit = hits_.begin();
    if (!forwards) hit = std::prev(hit == hits_.begin() ? hits_.end() : hit);
    const auto number = static_cast<int>(hit - hits_.begin()) + 1;
    const Cell cell{hit->row, hit->col};
    SelectCells(cell, cell);
    BringIntoView(cell);
    return number;
}

void GridView::SetEmptyHint(const QString& sentence, const QString& link,
                            std::function<void()> step) {
    if (!emptyHint_) {
        emptyHint_ = new QLabel(viewport());
        emptyHint_->setObjectName(objectName() + QStringLiteral("_empty"));
        emptyHint_->setTextFormat(Qt::RichText);
        emptyHint_->setContextMenuPolicy(Qt::PreventContextMenu);
        emptyHint_->setTextInteractionFlags(Qt::LinksAccessibleByMouse |
                                            Qt::LinksAccessibleByKeyboard);
        emptyHint_->setFocusPolicy(Qt::TabFocus);
    }
    // The ground of a grid is white in every theme.
    emptyHint_->setText(QStringLiteral("<span style='color:#1E2624'>%1<a href='#' "
                                       "style='color:#1F6B7A'>%2</a></span>")
                            .arg(sentence.toHtmlEscaped(), link.toHtmlEscaped()));
    emptyHint_->disconnect(this);
    connect(emptyHint_, &QLabel::linkActivated, this, [step = std::move(step)] { step(); });
    PlaceEmptyHint();
}

void GridView::PlaceEmptyHint() {
    if (!emptyHint_) return;
    emptyHint_->setVisible(geometry_.rows().count() <= geometry_.rows().fixed());
    emptyHint_->adjustSize();
    const int top = geometry_.rows().fixedExtent();
    const QSize room(viewport()->width(), viewport()->height() - top);
    emptyHint_->move(std::max(0, (room.width() - emptyHint_->width()) / 2),
                     top + std::max(0, (room.height() - emptyHint_->height()) / 2));
}

void GridView::Tell(const QString& text) const {
    if (onTell) onTell(text);
}

double GridView::PixelsPerTwip() const {
    return logicalDpiX() / kTwipsPerInch * zoom_ / 100;
}

void GridView::SetFonts() {
    fonts_ = GridFonts(font(), zoom_ / 100.0);
}

void GridView::FitColumns() {
    fittedWidths_ = FittedColWidths(shown(), fonts_);
}

void GridView::Rebuild() {
    shownPixelsPerTwip_ = PixelsPerTwip();
    geometry_ = GridGeometry(shown(), GridMetricsWith(fittedWidths_, fonts_, shownPixelsPerTwip_));
    FindAgain();
    updateGeometries();
    PlaceEmptyHint();
    viewport()->update();
    if (onChange) onChange();
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
    return cell.row < shown().fixedRows();
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
    PlaceEmptyHint();
}

void GridView::scrollContentsBy(int /*dx*/, int /*dy*/) {
    if (hovered_) Hover(CellAt(hoverPoint_));
    viewport()->update();
}

int GridView::horizontalOffset() const {
    return horizontalScrollBar()->value();
}

int GridView::verticalOffset() const {
    return geometry_.rows().Settled(verticalScrollBar()->value());
}

bool GridView::isIndexHidden(const QModelIndex& index) const {
    return shown().hidden(index.column());
}

QRegion GridView::visualRegionForSelection(const QItemSelection& /*selection*/) const {
    return viewport()->rect();
}

void GridView::paintEvent(QPaintEvent* event) {
    GridScene scene{shown(), geometry_, {horizontalOffset(), verticalOffset()}, viewport()->size()};
    scene.highlight = palette().color(QPalette::Highlight);
    scene.focused = hasFocus();
    scene.hits = hits_;
    if (hovered_) scene.cross = {hovered_->row, hovered_->col};
    scene.sortedCol = sort_ ? sort_->col : -1;
    scene.descending = sort_ && sort_->descending;
    QPainter painter(viewport());
    // Strips of a cross, which together would make up the whole view.
    for (const QRect& area : event->region()) GridPainter(scene, fonts_, painter).Paint(area);
}

bool GridView::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::Leave) Hover(std::nullopt);
    if (event->type() != QEvent::ToolTip) return QTableView::viewportEvent(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    ShowToolTip(help->pos(), help->globalPos());
    return true;
}

// Filled edges have a whole device pixel at every scale, which drawn ones have not.
bool GridView::event(QEvent* event) {
    const bool done = QTableView::event(event);
    if (event->type() == QEvent::Paint) PaintFrame();
    return done;
}

void GridView::PaintFrame() {
    QPainter painter(this);
    const QColor line = palette().color(QPalette::Mid);
    painter.fillRect(0, 0, width(), kFrame, line);
    painter.fillRect(0, height() - kFrame, width(), kFrame, line);
    painter.fillRect(0, 0, kFrame, height(), line);
    painter.fillRect(width() - kFrame, 0, kFrame, height(), line);
}

void GridView::Hover(const std::optional<Cell>& cell) {
    const auto now = crosshair_ ? cell : std::nullopt;
    if (now == hovered_) return;
    const QRegion before = CrossRegion();
    hovered_ = now;
    viewport()->update(before + CrossRegion());
}

QRegion GridView::CrossRegion() const {
    if (!hovered_ || hovered_->row >= geometry_.rows().count() ||
        hovered_->col >= geometry_.cols().count()) {
        return {};
    }
    const PixelRect cell =
        geometry_.CellRect(hovered_->row, hovered_->col, horizontalOffset(), verticalOffset());
    return QRegion(0, cell.y, viewport()->width(), cell.height) +
           QRegion(cell.x, 0, cell.width, viewport()->height());
}

void GridView::ShowToolTip(const QPoint& point, const QPoint& place) {
    const auto cell = CellAt(point);
    if (!cell) return QToolTip::hideText();
    const CellRange range = geometry_.MergedAround(cell->row, cell->col);
    const PixelRect rect = geometry_.VisibleRect(range, horizontalOffset(), verticalOffset(),
                                                 viewport()->width(), viewport()->height());
    // The text of merged cells stands in what can be seen of them, that of one cell in all of it.
    const std::string& tip = shown().tip(cell->col);
    if (!tip.empty() && range.bottom == shown().fixedRows() - 1 && range.left == range.right) {
        return QToolTip::showText(place, Qs(tip), viewport(),
                                  {rect.x, rect.y, rect.width, rect.height});
    }
    const bool merged = range.top != range.bottom || range.left != range.right;
    const PixelRect textRect =
        merged ? rect
               : geometry_.CellRect(cell->row, cell->col, horizontalOffset(), verticalOffset());
    const QSize size(textRect.width, textRect.height);
    if (!TextIsClipped(shown(), cell->row, cell->col, size, fonts_)) return QToolTip::hideText();
    QToolTip::showText(place, QString::fromStdString(shown().cell(cell->row, cell->col)),
                       viewport(), {rect.x, rect.y, rect.width, rect.height});
}

void GridView::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() != QEvent::FontChange && event->type() != QEvent::StyleChange) return;
    SetFonts();
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
    TakeSelection();
    ShowSelection();
}

void GridView::ShowSelection() {
    showingSelection_ = true;
    const CellRange range = SelectedRange(shown());
    if (range.bottom < range.top) {
        selectionModel()->clear();
    } else {
        const QItemSelection cells(model_->index(range.top, range.left),
                                   model_->index(range.bottom, range.right));
        selectionModel()->select(cells, QItemSelectionModel::ClearAndSelect);
        selectionModel()->setCurrentIndex(model_->index(shown().rowSel(), shown().colSel()),
                                          QItemSelectionModel::NoUpdate);
    }
    showingSelection_ = false;
    viewport()->update();
    if (onChange) onChange();
}

// Assistive technology moves the current cell through the selection model.
void GridView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    if (showingSelection_ || !current.isValid()) return;
    const Cell cell{current.row(), current.column()};
    model_->Select(cell.row, cell.col, cell.row, cell.col);
    TakeSelection();
    BringIntoView(cell);
    viewport()->update();
    if (onChange) onChange();
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
    if (heading && !onPress) pressedHeading_ = cell;
    if (extend && shown().row() >= 0 && !heading) {
        dragAnchor_ = Cell{shown().row(), shown().col()};
        SelectCells(*dragAnchor_, cell);
    } else {
        dragAnchor_ = cell;
        if (!heading) SelectCells(cell, cell);
    }
    if (onPress) onPress(GivenRow(cell.row), cell.col, Qt::LeftButton);
}

void GridView::PressRight(const std::optional<Cell>& cell, const QPoint& place) {
    pressed_ = cell.value_or(Cell{});
    if (cell) {
        if (!IsHeading(*cell) && !SelectedRange(shown()).Contains(cell->row, cell->col)) {
            SelectCells(*cell, *cell);
        }
        if (onPress) onPress(GivenRow(cell->row), cell->col, Qt::RightButton);
    }
    if (onPopup) onPopup(place);
}

void GridView::mouseMoveEvent(QMouseEvent* event) {
    event->accept();
    const QPoint point = event->position().toPoint();
    if (!(event->buttons() & Qt::LeftButton)) {
        EndDrag();
        hoverPoint_ = point;
        Hover(CellAt(point));
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
    const bool fixedRows = dragAnchor_->row < shown().fixedRows();
    const bool fixedCols = dragAnchor_->col < shown().fixedCols() || horizontalOffset() == 0;
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
    if (corner.row != shown().rowSel() || corner.col != shown().colSel() ||
        dragAnchor_->row != shown().row() || dragAnchor_->col != shown().col()) {
        SelectCells(*dragAnchor_, corner);
    }
    if (!autoScroll_.isActive()) autoScroll_.start(kAutoScrollMs, this);
}

void GridView::timerEvent(QTimerEvent* event) {
    if (event->timerId() != autoScroll_.timerId()) return QTableView::timerEvent(event);
    const auto beyond = [](int pixel, int begin, int end) {
        return pixel < begin ? pixel - begin : pixel >= end ? pixel - end + 1 : 0;
    };
    const bool fromFixedRows = dragAnchor_->row < shown().fixedRows();
    const bool fromFixedCols = dragAnchor_->col < shown().fixedCols();
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
    PressHeading(event->position().toPoint());
    EndDrag();
}

void GridView::EndDrag() {
    dragging_ = false;
    dragAnchor_.reset();
    resizingCol_ = -1;
    pressedHeading_.reset();
    autoScroll_.stop();
}

void GridView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return mousePressEvent(event);
    event->accept();
    const QPoint point = event->position().toPoint();
    const int border = BorderAt(point);
    if (border >= 0) return ResizeColumn(border, FittedColWidth(shown(), border, fonts_));
    const auto cell = CellAt(point);
    if (!cell) return;
    PressLeft(*cell, event->modifiers() & Qt::ShiftModifier);
    if (onDoubleClick) onDoubleClick(GivenRow(cell->row), cell->col);
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
    if (sort_) given_.SetColWidth(col, static_cast<int>(std::lround(twips)));
    Rebuild();
}

void GridView::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    if (event->reason() != QContextMenuEvent::Keyboard || !onPopup) return;
    QPoint place(0, 0);
    pressed_ = {shown().rowSel(), shown().colSel()};
    if (shown().row() >= 0) {
        BringIntoView(pressed_);
        place = visualRect(model_->index(pressed_.row, pressed_.col)).center();
    }
    onPopup(viewport()->mapToGlobal(place));
}

void GridView::wheelEvent(QWheelEvent* event) {
    if (!(event->modifiers() & Qt::ControlModifier)) return QTableView::wheelEvent(event);
    event->accept();
    const int turn = event->angleDelta().y();
    if (turn != 0) StepZoom(turn);
}

// The keys that do something other than move the selection.
bool GridView::RunKey(QKeyEvent* event) {
    const auto modifiers = event->modifiers() & ~Qt::KeypadModifier;
    const bool control = modifiers & Qt::ControlModifier;
    const bool isCell = shown().row() >= 0;
    switch (event->key()) {
        case Qt::Key_C:
            if (modifiers != (Qt::ControlModifier | Qt::ShiftModifier) || !onCopyTable) break;
            onCopyTable();
            return true;
        case Qt::Key_Plus:
        case Qt::Key_Equal:
            if (control) StepZoom(1);
            return control;
        case Qt::Key_Minus:
        case Qt::Key_Underscore:
            if (control) StepZoom(-1);
            return control;
        case Qt::Key_0:
            if (control) SetZoom(100);
            return control;
        case Qt::Key_Space:
            if (modifiers || !onPress || !isCell) break;
            onPress(grid().row(), grid().col(), Qt::LeftButton);
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (modifiers || !onDoubleClick || !isCell) break;
            onDoubleClick(grid().row(), grid().col());
            return true;
        default:
            break;
    }
    return false;
}

void GridView::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) {
        if (onCopy) onCopy();
        return;
    }
    if (RunKey(event)) return;
    const GridAxis& rows = geometry_.rows();
    const GridAxis& cols = geometry_.cols();
    const bool usable = shown().row() >= 0 && rows.First() >= 0 && cols.First() >= 0;
    if (usable && event->matches(QKeySequence::SelectAll)) {
        return SelectCells({rows.First(), 0}, {rows.Last(), cols.Last()});
    }
    const bool extend = event->modifiers() & Qt::ShiftModifier;
    const Cell anchor{shown().row(), shown().col()};
    const Cell from = extend ? Cell{shown().rowSel(), shown().colSel()} : anchor;
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
