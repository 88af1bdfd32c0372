#include "ui/qt/GridView.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QAccessible>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QImage>
#include <QScrollBar>
#include <QTest>
#include <vector>

#include "ui/qt/GridCopy.h"
#include "ui/qt/GridModel.h"

namespace ssq {
namespace {

constexpr Rgb kRed{250, 0, 0};
constexpr Rgb kGreen{51, 153, 102};
constexpr Rgb kBlue{0, 0, 250};

// Columns of 40 pixels and rows of 20 at 96 dpi; two fixed rows, two fixed columns.
ResultGrid BigGrid(int rows = 200, int cols = 40) {
    ResultGrid grid(rows, cols, 2, 2);
    for (int row = 0; row < rows; ++row) {
        for (int col = 0; col < cols; ++col) {
            grid.SetCell(row, col, std::to_string(row) + "." + std::to_string(col));
        }
    }
    grid.SetAllRowHeights(300);
    grid.SetColWidths(0, cols - 1, 600);
    return grid;
}

class GridViewTest : public testing::Test {
  protected:
    void SetUp() override {
        view_.resize(440, 330);
        view_.SetGrid(BigGrid());
        view_.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&view_));
    }

    QRect CellRect(int row, int col) const {
        return view_.visualRect(view_.model()->index(row, col));
    }
    QPoint Centre(int row, int col) const { return CellRect(row, col).center(); }

    void Press(int row, int col, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers modifiers = {}) {
        QTest::mousePress(view_.viewport(), button, modifiers, Centre(row, col));
    }
    void Click(int row, int col, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers modifiers = {}) {
        QTest::mouseClick(view_.viewport(), button, modifiers, Centre(row, col));
    }
    void DragTo(const QPoint& point) {
        QMouseEvent move(QEvent::MouseMove, point, view_.viewport()->mapToGlobal(QPointF(point)),
                         Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(view_.viewport(), &move);
    }
    void Release(const QPoint& point) {
        QTest::mouseRelease(view_.viewport(), Qt::LeftButton, {}, point);
    }

    std::vector<int> Selection() const {
        const ResultGrid& grid = view_.grid();
        return {grid.row(), grid.col(), grid.rowSel(), grid.colSel()};
    }
    // What assistive technology sees as selected.
    std::vector<int> SelectedItems() const {
        const QItemSelection ranges = view_.selectionModel()->selection();
        if (ranges.size() != 1) return {};
        return {ranges[0].top(), ranges[0].left(), ranges[0].bottom(), ranges[0].right()};
    }

    Rgb Pixel(const QPoint& point) {
        const QColor colour = view_.viewport()->grab().toImage().pixelColor(point);
        return {static_cast<std::uint8_t>(colour.red()), static_cast<std::uint8_t>(colour.green()),
                static_cast<std::uint8_t>(colour.blue())};
    }
    // A pixel of the cell that neither text, line nor focus frame touches.
    Rgb Ground(int row, int col) { return Pixel(CellRect(row, col).topLeft() + QPoint(3, 3)); }

    GridView view_;
};

TEST_F(GridViewTest, FixedCellsStayWhileTheBodyScrolls) {
    view_.horizontalScrollBar()->setValue(100);
    view_.verticalScrollBar()->setValue(50);
    EXPECT_EQ(CellRect(1, 1), QRect(40, 20, 40, 20));
    EXPECT_EQ(CellRect(1, 5), QRect(100, 20, 40, 20));
    EXPECT_EQ(CellRect(6, 1), QRect(40, 70, 40, 20));
    EXPECT_EQ(CellRect(6, 5), QRect(100, 70, 40, 20));
    for (const auto& [row, col] : {std::pair(0, 0), {1, 6}, {7, 1}, {9, 8}}) {
        const QModelIndex index = view_.indexAt(Centre(row, col));
        EXPECT_EQ(std::pair(index.row(), index.column()), std::pair(row, col));
    }
    // Beneath the fixed cells lies what has scrolled away.
    EXPECT_EQ(view_.indexAt(Centre(2, 2)), view_.model()->index(0, 0));
}

TEST_F(GridViewTest, ScrollsToTheLastCellAndNoFurther) {
    view_.verticalScrollBar()->setValue(1'000'000);
    view_.horizontalScrollBar()->setValue(1'000'000);
    EXPECT_EQ(CellRect(199, 39).bottomRight(), view_.viewport()->rect().bottomRight());
    view_.SetGrid(BigGrid());
    EXPECT_EQ(view_.verticalScrollBar()->value(), 0);
    EXPECT_EQ(view_.horizontalScrollBar()->value(), 0);
}

TEST_F(GridViewTest, DragsSelectARectangle) {
    struct Case {
        const char* what;
        std::pair<int, int> from;
        std::pair<int, int> to;
        std::vector<int> selection;
    };
    for (const Case& c : std::vector<Case>{
             {"within the body", {3, 3}, {6, 5}, {3, 3, 6, 5}},
             {"backwards", {6, 5}, {3, 3}, {6, 5, 3, 3}},
             {"from the fixed columns into the body", {5, 1}, {9, 6}, {5, 1, 9, 6}},
             {"from the body into the fixed columns", {5, 4}, {7, 1}, {5, 4, 7, 1}},
             {"up into the heading stops below it", {5, 4}, {0, 4}, {5, 4, 2, 4}},
             {"from the heading", {1, 3}, {4, 4}, {1, 3, 4, 4}},
         }) {
        view_.SetGrid(BigGrid());
        Press(c.from.first, c.from.second);
        DragTo(Centre(c.to.first, c.to.second));
        Release(Centre(c.to.first, c.to.second));
        EXPECT_EQ(Selection(), c.selection) << c.what;
        EXPECT_EQ(SelectedItems(), (std::vector{std::min(c.selection[0], c.selection[2]),
                                                std::min(c.selection[1], c.selection[3]),
                                                std::max(c.selection[0], c.selection[2]),
                                                std::max(c.selection[1], c.selection[3])}))
            << c.what;
    }
}

TEST_F(GridViewTest, ADragBeyondTheEdgeScrolls) {
    Press(5, 5);
    const QPoint outside(view_.viewport()->width() + 30, view_.viewport()->height() + 30);
    DragTo(outside);
    ASSERT_TRUE(QTest::qWaitFor([&] { return Selection()[2] > 30 && Selection()[3] > 15; }));
    DragTo(QPoint(90, 10));
    ASSERT_TRUE(QTest::qWaitFor([&] { return Selection()[2] == 2; }));
    Release(QPoint(90, 10));
    const int scroll = view_.horizontalScrollBar()->value();
    QTest::qWait(100);
    EXPECT_EQ(view_.horizontalScrollBar()->value(), scroll);
    EXPECT_EQ(Selection()[0], 5);
}

TEST_F(GridViewTest, KeysMoveAndExtendTheSelection) {
    struct Case {
        int key;
        Qt::KeyboardModifiers modifiers;
        std::vector<int> selection;
    };
    const int page = view_.viewport()->height() / 20 - 2;
    Click(4, 4);
    for (const Case& c : std::vector<Case>{
             {Qt::Key_Down, {}, {5, 4, 5, 4}},
             {Qt::Key_Right, Qt::ShiftModifier, {5, 4, 5, 5}},
             {Qt::Key_Up, Qt::ShiftModifier, {5, 4, 4, 5}},
             {Qt::Key_Left, {}, {5, 3, 5, 3}},
             {Qt::Key_End, {}, {5, 39, 5, 39}},
             {Qt::Key_Home, Qt::ShiftModifier, {5, 39, 5, 2}},
             {Qt::Key_End, Qt::ControlModifier, {199, 39, 199, 39}},
             {Qt::Key_Down, {}, {199, 39, 199, 39}},
             {Qt::Key_Home, Qt::ControlModifier, {2, 2, 2, 2}},
             {Qt::Key_PageDown, {}, {2 + page, 2, 2 + page, 2}},
             {Qt::Key_PageUp, {}, {2, 2, 2, 2}},
             {Qt::Key_Down, Qt::ControlModifier | Qt::ShiftModifier, {2, 2, 199, 2}},
             {Qt::Key_A, Qt::ControlModifier, {2, 2, 199, 39}},
         }) {
        QTest::keyClick(&view_, static_cast<Qt::Key>(c.key), c.modifiers);
        EXPECT_EQ(Selection(), c.selection) << c.key;
    }
    QTest::keyClick(&view_, Qt::Key_End, Qt::ControlModifier);
    EXPECT_TRUE(view_.viewport()->rect().contains(CellRect(199, 39)));
}

TEST_F(GridViewTest, KeysPassOverHiddenColumns) {
    view_.Edit([](ResultGrid& grid) {
        for (int col = 3; col < 36; ++col) grid.SetHidden(col, true);
    });
    Click(4, 2);
    QTest::keyClick(&view_, Qt::Key_Right);
    EXPECT_EQ(Selection(), (std::vector{4, 36, 4, 36}));
}

TEST_F(GridViewTest, PressesReportTheCell) {
    std::vector<std::vector<int>> presses;
    int popups = 0;
    view_.onPress = [&](int row, int col, Qt::MouseButton button) {
        presses.push_back({row, col, static_cast<int>(button), Selection()[0], Selection()[1]});
    };
    view_.onPopup = [&](const QPoint& place) {
        ++popups;
        EXPECT_EQ(presses.back()[2], static_cast<int>(Qt::RightButton));
        EXPECT_TRUE(QRect(view_.mapToGlobal(QPoint()), view_.size()).contains(place));
    };
    view_.Edit([](ResultGrid& grid) { grid.Select(6, 6, 6, 6); });
    Click(0, 4);                                     // a heading leaves the selection
    Click(4, 4);                                     // a cell takes it
    Click(7, 7, Qt::LeftButton, Qt::ShiftModifier);  // extends it
    Click(5, 5, Qt::RightButton);                    // inside: it stays
    Click(9, 5, Qt::RightButton);                    // outside: it moves
    constexpr int kLeft = Qt::LeftButton;
    constexpr int kRight = Qt::RightButton;
    EXPECT_EQ(presses, (std::vector<std::vector<int>>{{0, 4, kLeft, 6, 6},
                                                      {4, 4, kLeft, 4, 4},
                                                      {7, 7, kLeft, 4, 4},
                                                      {5, 5, kRight, 4, 4},
                                                      {9, 5, kRight, 9, 5}}));
    EXPECT_EQ(popups, 2);
    EXPECT_EQ(Selection(), (std::vector{9, 5, 9, 5}));
}

TEST_F(GridViewTest, ADoubleClickReportsTheCell) {
    std::vector<std::pair<int, int>> cells;
    view_.onDoubleClick = [&](int row, int col) { cells.emplace_back(row, col); };
    QTest::mouseDClick(view_.viewport(), Qt::LeftButton, {}, Centre(5, 6));
    EXPECT_EQ(cells, (std::vector<std::pair<int, int>>{{5, 6}}));
}

TEST_F(GridViewTest, APressMayChangeTheGrid) {
    view_.onPress = [&](int row, int col, Qt::MouseButton) {
        if (row == 4) view_.Edit([&](ResultGrid& grid) { grid.SetCell(row, col, "x"); });
        if (row == 5) view_.SetGrid(ResultGrid(3, 3, 2, 2));
    };
    Click(4, 4);
    EXPECT_EQ(view_.grid().cell(4, 4), "x");
    Press(5, 5);
    DragTo(QPoint(200, 200));
    Release(QPoint(200, 200));
    EXPECT_EQ(Selection(), (std::vector{2, 2, 2, 2}));
}

TEST_F(GridViewTest, EditKeepsTheScrollUnlessTheSelectionMoves) {
    view_.verticalScrollBar()->setValue(400);
    view_.Edit([](ResultGrid& grid) { grid.SetCell(2, 2, "x"); });
    EXPECT_EQ(view_.verticalScrollBar()->value(), 400);
    view_.Edit([](ResultGrid& grid) { grid.Select(150, 30, 151, 31); });
    EXPECT_TRUE(view_.viewport()->rect().contains(CellRect(150, 30)));
    EXPECT_EQ(SelectedItems(), (std::vector{150, 30, 151, 31}));
    view_.Edit([](ResultGrid& grid) { grid.SetRows(2); });
    EXPECT_EQ(Selection(), (std::vector{-1, -1, -1, -1}));
    QTest::keyClick(&view_, Qt::Key_Down);
    QTest::keyClick(&view_, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(Selection(), (std::vector{-1, -1, -1, -1}));
}

TEST_F(GridViewTest, CopiesTheSelection) {
    view_.onCopy = [&] { CopySelection(view_); };
    view_.Edit([](ResultGrid& grid) { grid.Select(3, 4, 4, 5); });
    QTest::keyClick(&view_, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), "3.4,3.5\r4.4,4.5");
    CopySelectionAsCondition(view_);
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), "3.4,3.5/0~1\r\n4.4,4.5/0~1");
    CopyKillConditions(view_, 0);
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(),
              "4.2,4.3,4.4,4.5,4.6,4.7/0~1\r\n");
}

TEST_F(GridViewTest, DraggingABorderOfTheHeadingSetsTheWidth) {
    const QPoint border = CellRect(0, 4).topRight() + QPoint(1, 10);
    QTest::mousePress(view_.viewport(), Qt::LeftButton, {}, border);
    DragTo(border + QPoint(25, 0));
    Release(border + QPoint(25, 0));
    EXPECT_EQ(CellRect(0, 4).width(), 65);
    EXPECT_EQ(view_.grid().colWidth(4), 975);
    view_.Edit([](ResultGrid& grid) { grid.SetCell(9, 4, "a rather long text in this cell"); });
    QTest::mouseDClick(view_.viewport(), Qt::LeftButton, {},
                       CellRect(0, 4).topRight() + QPoint(1, 10));
    EXPECT_GT(CellRect(0, 4).width(), 120);
    EXPECT_EQ(Selection(), (std::vector{2, 2, 2, 2}));
}

TEST_F(GridViewTest, PaintsColoursOfCellsGridAndLines) {
    ResultGrid grid = BigGrid();
    grid.gridBack = kGreen;
    grid.gridLines = kBlue;
    grid.SetBack(4, 4, kRed);
    grid.SetBack(4, 0, kRed);
    view_.SetGrid(std::move(grid));
    EXPECT_EQ(Ground(4, 4), kRed);
    EXPECT_EQ(Ground(4, 0), kRed);
    EXPECT_EQ(Ground(4, 5), kGreen);
    EXPECT_NE(Ground(0, 5), kGreen);
    EXPECT_NE(Ground(5, 0), kGreen);
    EXPECT_EQ(Pixel(CellRect(4, 5).bottomRight()), kBlue);
    EXPECT_NE(Pixel(CellRect(1, 5).topRight() + QPoint(0, 5)), kBlue);
    view_.Edit([](ResultGrid& edited) { edited.Select(4, 4, 4, 5); });
    EXPECT_NE(Ground(4, 4), kRed);
    EXPECT_GT(Ground(4, 4).red, 150);

    view_.SetGrid(ResultGrid());
    EXPECT_EQ(Pixel(view_.viewport()->rect().center()), (Rgb{255, 255, 255}));
}

TEST_F(GridViewTest, PaintsMarksBehindTexts) {
    ResultGrid grid = BigGrid();
    grid.SetMark(4, 4, kRed);
    grid.SetMark(5, 5, kRed);
    grid.SetCell(5, 5, "");
    view_.SetGrid(std::move(grid));
    EXPECT_EQ(Pixel(CellRect(4, 4).topLeft() + QPoint(19, 2)), kRed);
    EXPECT_EQ(Ground(4, 4), (Rgb{255, 255, 255}));
    EXPECT_EQ(Pixel(Centre(5, 5)), (Rgb{255, 255, 255}));
}

TEST_F(GridViewTest, PaintsMergedCellsAsOne) {
    ResultGrid grid = BigGrid();
    for (int col = 1; col <= 5; ++col) grid.SetCell(0, col, "group");
    grid.SetBack(0, 1, kRed);
    view_.SetGrid(grid);
    const QPoint inner = CellRect(0, 3).topRight() + QPoint(0, 3);
    EXPECT_NE(Pixel(inner), kRed);
    grid.SetMergeRow(0);
    view_.SetGrid(std::move(grid));
    EXPECT_EQ(Pixel(inner), kRed);
    // Scrolled beneath the fixed column, the merged cell still joins both sides.
    view_.horizontalScrollBar()->setValue(100);
    EXPECT_EQ(Ground(0, 5), kRed);
    EXPECT_NE(Ground(0, 6), kRed);
}

TEST_F(GridViewTest, RowsAndColumnsWithoutSizesFitTheirTexts) {
    ResultGrid grid(3, 3, 1, 0);
    grid.SetCell(0, 0, "01");
    grid.SetCell(2, 1, "01,02,03,04,05,06");
    view_.SetGrid(std::move(grid));
    EXPECT_LT(CellRect(0, 0).width(), 40);
    EXPECT_GT(CellRect(0, 1).width(),
              view_.fontMetrics().horizontalAdvance(QStringLiteral("01,02,03,04,05,06")));
    EXPECT_GE(CellRect(0, 0).height(), view_.fontMetrics().height());

    const int widest = CellRect(0, 1).width();
    ResultGrid even = view_.grid();
    even.SetEvenCols(0, 1);
    view_.SetGrid(std::move(even));
    EXPECT_EQ(CellRect(0, 0).width(), widest);
    EXPECT_NE(CellRect(0, 2).width(), widest);
}

TEST_F(GridViewTest, AssistiveTechnologySeesATable) {
    QAccessibleInterface* table = QAccessible::queryAccessibleInterface(&view_);
    ASSERT_NE(table, nullptr);
    ASSERT_NE(table->tableInterface(), nullptr);
    EXPECT_EQ(table->role(), QAccessible::Table);
    QAccessibleInterface* cell = table->tableInterface()->cellAt(3, 4);
    ASSERT_NE(cell, nullptr);
    EXPECT_EQ(cell->text(QAccessible::Name).toStdString(), "3.4");
    EXPECT_EQ(cell->rect(), CellRect(3, 4).translated(view_.viewport()->mapToGlobal(QPoint(0, 0))));
    EXPECT_EQ(table->tableInterface()->columnDescription(4).toStdString(), "1.4");

    view_.selectionModel()->setCurrentIndex(view_.model()->index(90, 20),
                                            QItemSelectionModel::ClearAndSelect);
    EXPECT_EQ(Selection(), (std::vector{90, 20, 90, 20}));
}

TEST_F(GridViewTest, TheMenuKeyRaisesThePopupAtTheSelection) {
    QPoint raised;
    view_.onPopup = [&](const QPoint& place) { raised = place; };
    view_.Edit([](ResultGrid& grid) { grid.Select(4, 4, 5, 5); });
    QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QCoreApplication::sendEvent(view_.viewport(), &key);
    EXPECT_EQ(raised, view_.viewport()->mapToGlobal(Centre(5, 5)));
}

TEST(GridModel, KeepsTheRulesOfAModel) {
    GridModel model;
    const QAbstractItemModelTester tester(&model,
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.Replace(BigGrid(5, 4));
    model.Change([](ResultGrid& grid) { grid.SetCell(2, 2, "x"); });
    EXPECT_EQ(model.index(2, 2).data().toString().toStdString(), "x");
    model.Change([](ResultGrid& grid) { grid.AddRow(); });
    EXPECT_EQ(model.rowCount(), 6);
    EXPECT_EQ(model.headerData(3, Qt::Horizontal).toString().toStdString(), "1.3");
    EXPECT_EQ(model.headerData(3, Qt::Vertical).toString().toStdString(), "3.0");
    model.Replace(ResultGrid());
    EXPECT_EQ(model.rowCount(), 0);
}

}  // namespace
}  // namespace ssq
