#include "ui/qt/GridView.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QImage>
#include <QLabel>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>

#include "ui/qt/GridExport.h"

namespace ssq {
namespace {

using Numbers = std::vector<int>;

constexpr Rgb kRed{250, 0, 0};
constexpr Rgb kGreen{51, 153, 102};
constexpr Rgb kBlue{0, 0, 250};

// Columns of 40 pixels and rows of 20 at 96 dpi; two fixed rows, two fixed columns.
ResultGrid BigGrid() {
    ResultGrid grid(200, 40, 2, 2);
    for (int i = 0; i < 200 * 40; ++i) {
        grid.SetCell(i / 40, i % 40, std::to_string(i / 40) + "." + std::to_string(i % 40));
    }
    grid.SetAllRowHeights(300);
    grid.SetColWidths(0, 39, 600);
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

    void Click(int row, int col, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers modifiers = {}) {
        QTest::mouseClick(view_.viewport(), button, modifiers, Centre(row, col));
    }
    void MoveTo(const QPoint& point) {
        QMouseEvent move(QEvent::MouseMove, point, view_.viewport()->mapToGlobal(QPointF(point)),
                         Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(view_.viewport(), &move);
    }
    void Drag(const QPoint& from, const QPoint& to) {
        QTest::mousePress(view_.viewport(), Qt::LeftButton, {}, from);
        MoveTo(to);
        QTest::mouseRelease(view_.viewport(), Qt::LeftButton, {}, to);
    }

    Numbers Selection() const {
        const ResultGrid& grid = view_.grid();
        return {grid.row(), grid.col(), grid.rowSel(), grid.colSel()};
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
    view_.verticalScrollBar()->setValue(48);  // ends on a whole row
    EXPECT_EQ(CellRect(1, 1), QRect(40, 20, 40, 20));
    EXPECT_EQ(CellRect(1, 5), QRect(100, 20, 40, 20));
    EXPECT_EQ(CellRect(6, 1), QRect(40, 80, 40, 20));
    EXPECT_EQ(view_.indexAt(Centre(9, 8)), view_.model()->index(9, 8));
    // Beneath the fixed cells lies what has scrolled away.
    EXPECT_EQ(view_.indexAt(Centre(2, 2)), view_.model()->index(0, 0));
    view_.verticalScrollBar()->setValue(1'000'000);
    view_.horizontalScrollBar()->setValue(1'000'000);
    EXPECT_EQ(CellRect(199, 39).right(), view_.viewport()->rect().right());
    for (const int height : {330, 250, 500, 333}) {  // who stands at the bottom stays there
        view_.resize(440, height);
        EXPECT_TRUE(view_.viewport()->rect().contains(CellRect(199, 39))) << height;
        EXPECT_EQ(CellRect(view_.indexAt(QPoint(90, 45)).row(), 39).top(), 40) << height;
    }
    // A changed cell leaves the scroll, a changed selection comes into view.
    view_.Edit([](ResultGrid& grid) { grid.SetCell(2, 2, "x"); });
    EXPECT_TRUE(view_.viewport()->rect().contains(CellRect(199, 39)));
    view_.Edit([](ResultGrid& grid) { grid.Select(50, 30, 51, 31); });
    EXPECT_TRUE(view_.viewport()->rect().contains(CellRect(50, 30)));
    view_.SetGrid(BigGrid());
    EXPECT_EQ(view_.verticalScrollBar()->value() + view_.horizontalScrollBar()->value(), 0);
}

TEST_F(GridViewTest, DragsSelectARectangle) {
    for (const auto& [drag, selection] : std::vector<std::pair<Numbers, Numbers>>{
             {{6, 5, 3, 3}, {6, 5, 3, 3}},
             {{5, 1, 9, 6}, {5, 1, 9, 6}},  // from the fixed columns into the body
             {{5, 4, 7, 1}, {5, 4, 7, 1}},  // and back
             {{5, 4, 0, 4}, {5, 4, 2, 4}},  // up into the heading stops below it
             {{1, 3, 4, 4}, {1, 3, 4, 4}},  // from the heading
         }) {
        view_.SetGrid(BigGrid());
        Drag(Centre(drag[0], drag[1]), Centre(drag[2], drag[3]));
        EXPECT_EQ(Selection(), selection);
    }
}

TEST_F(GridViewTest, DraggedBordersResizeTheColumnBeforeThem) {
    for (const int grip : {-2, 0, 2}) {
        view_.SetGrid(BigGrid());
        const QPoint border = CellRect(0, 4).topRight() + QPoint(1 + grip, 5);
        Drag(border, border + QPoint(15 - grip, 0));
        EXPECT_EQ(CellRect(0, 4), QRect(160, 0, 55, 20)) << grip;
        EXPECT_EQ(CellRect(0, 5), QRect(215, 0, 40, 20)) << grip;
    }
}

TEST_F(GridViewTest, KeysMoveExtendAndCopyTheSelection) {
    view_.Edit([](ResultGrid& grid) { grid.SetHidden(6, true); });
    const int page = view_.viewport()->height() / 20 - 2;
    const auto control = Qt::ControlModifier;
    const auto shift = Qt::ShiftModifier;
    Click(4, 5);
    for (const auto& [key, modifiers, selection] :
         std::vector<std::tuple<Qt::Key, Qt::KeyboardModifiers, Numbers>>{
             {Qt::Key_Down, {}, {5, 5, 5, 5}},
             {Qt::Key_Right, shift, {5, 5, 5, 7}},
             {Qt::Key_Up, shift, {5, 5, 4, 7}},
             {Qt::Key_Left, {}, {5, 4, 5, 4}},
             {Qt::Key_End, {}, {5, 39, 5, 39}},
             {Qt::Key_Home, shift, {5, 39, 5, 2}},
             {Qt::Key_End, control, {199, 39, 199, 39}},
             {Qt::Key_Down, {}, {199, 39, 199, 39}},
             {Qt::Key_Home, control, {2, 2, 2, 2}},
             {Qt::Key_Left, shift, {2, 2, 2, 1}},  // into the fixed columns
             {Qt::Key_Left, {}, {2, 1, 2, 1}},
             {Qt::Key_Down, shift, {2, 1, 3, 1}},
             {Qt::Key_Home, control, {2, 2, 2, 2}},
             {Qt::Key_PageDown, {}, {2 + page, 2, 2 + page, 2}},
             {Qt::Key_PageUp, {}, {2, 2, 2, 2}},
             {Qt::Key_Down, control | shift, {2, 2, 199, 2}},
             {Qt::Key_A, control, {2, 0, 199, 39}},
         }) {
        QTest::keyClick(&view_, key, modifiers);
        EXPECT_EQ(Selection(), selection) << key;
    }
    QTest::keyClick(&view_, Qt::Key_End, control);
    EXPECT_TRUE(view_.viewport()->rect().contains(CellRect(199, 39)));
    view_.onCopy = [&] { CopySelection(view_); };
    view_.Edit([](ResultGrid& grid) { grid.Select(3, 4, 4, 5); });
    QTest::keyClick(&view_, Qt::Key_C, control);
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), "3.4,3.5\r4.4,4.5");
    view_.Edit([](ResultGrid& grid) { grid.SetRows(2); });
    QTest::keyClick(&view_, Qt::Key_Down);
    QTest::keyClick(&view_, Qt::Key_A, control);
    EXPECT_EQ(Selection(), (Numbers{-1, -1, -1, -1}));
}

TEST_F(GridViewTest, PressesReportTheCellAndRaiseThePopup) {
    std::vector<Numbers> presses;
    std::vector<QPoint> popups;
    view_.onPress = [&](int row, int col, Qt::MouseButton button) {
        presses.push_back({row, col, static_cast<int>(button), Selection()[0], Selection()[1]});
    };
    view_.onDoubleClick = [&](int row, int col) { presses.push_back({row, col}); };
    view_.onPopup = [&](const QPoint& place) { popups.push_back(place); };
    view_.Edit([](ResultGrid& grid) { grid.Select(6, 6, 6, 6); });
    Click(0, 4);                                     // a heading leaves the selection
    Click(4, 4);                                     // a cell takes it
    Click(7, 7, Qt::LeftButton, Qt::ShiftModifier);  // extends it
    Click(5, 5, Qt::RightButton);                    // inside: it stays
    EXPECT_EQ(view_.pressedRow(), 5);
    Click(9, 5, Qt::RightButton);  // outside: it moves
    Click(8, 1);                   // fixed columns belong to their row
    Click(7, 0, Qt::RightButton);
    QTest::mouseDClick(view_.viewport(), Qt::LeftButton, {}, Centre(5, 6));
    presses.erase(presses.end() - 2);  // the second press of the double click
    EXPECT_EQ(presses, (std::vector<Numbers>{{0, 4, Qt::LeftButton, 6, 6},
                                             {4, 4, Qt::LeftButton, 4, 4},
                                             {7, 7, Qt::LeftButton, 4, 4},
                                             {5, 5, Qt::RightButton, 4, 4},
                                             {9, 5, Qt::RightButton, 9, 5},
                                             {8, 1, Qt::LeftButton, 8, 1},
                                             {7, 0, Qt::RightButton, 7, 0},
                                             {5, 6}}));
    // The menu key raises it at the selection.
    QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QCoreApplication::sendEvent(view_.viewport(), &key);
    ASSERT_EQ(popups.size(), 4U);
    EXPECT_EQ(popups[1], view_.viewport()->mapToGlobal(Centre(9, 5)));
    EXPECT_EQ(popups[3], view_.viewport()->mapToGlobal(Centre(5, 6)));
}

TEST_F(GridViewTest, APressMayReplaceTheGridAndFocusSelectsNothing) {
    view_.onPress = [&](int, int, Qt::MouseButton) { view_.SetGrid(ResultGrid(3, 3, 2, 2)); };
    Drag(Centre(5, 5), QPoint(200, 200));
    EXPECT_EQ(Selection(), (Numbers{2, 2, 2, 2}));
    view_.SetGrid(ResultGrid(1, 3, 1, 0));  // a heading alone
    QFocusEvent focus(QEvent::FocusIn, Qt::TabFocusReason);
    QCoreApplication::sendEvent(&view_, &focus);
    EXPECT_EQ(Selection(), (Numbers{-1, -1, -1, -1}));
}

TEST_F(GridViewTest, PaintsColoursMarksLinesAndMerges) {
    ResultGrid grid = BigGrid();
    grid.gridBack = kGreen;
    grid.gridLines = kBlue;
    grid.SetBack(4, 4, kRed);
    grid.SetMark(5, 4, kRed);
    grid.SetMark(5, 5, kRed);
    grid.SetCell(5, 5, "");  // a mark needs a text
    view_.SetGrid(std::move(grid));
    EXPECT_EQ(Ground(4, 4), kRed);
    EXPECT_EQ(Ground(4, 5), kGreen);
    EXPECT_NE(Ground(0, 5), kGreen);
    EXPECT_EQ(Pixel(CellRect(4, 5).bottomRight()), kBlue);
    EXPECT_EQ(Pixel(CellRect(5, 4).topLeft() + QPoint(19, 2)), kRed);
    EXPECT_EQ(Ground(5, 4), kGreen);
    EXPECT_EQ(Pixel(Centre(5, 5)), kGreen);
    view_.Edit([](ResultGrid& edited) { edited.Select(4, 4, 4, 5); });
    EXPECT_NE(Ground(4, 4), kRed);
    // A merged heading is one cell, also where it has scrolled beneath the fixed column.
    view_.Edit([](ResultGrid& edited) {
        for (int col = 1; col <= 5; ++col) edited.SetCell(0, col, "group");
        edited.SetBack(0, 1, kRed);
        edited.SetMergeRow(0);
    });
    EXPECT_EQ(Pixel(CellRect(0, 3).topRight() + QPoint(0, 3)), kRed);
    view_.horizontalScrollBar()->setValue(100);
    EXPECT_EQ(Ground(0, 5), kRed);
    EXPECT_NE(Ground(0, 6), kRed);
}

// Whatever stands on screen, what is told and copied are the rows of the grid as it was given.
TEST_F(GridViewTest, HeadingsSortTheViewAlone) {
    ResultGrid given = BigGrid();
    for (int row = 2; row < 200; ++row) given.SetCell(row, 4, std::to_string(500 - row));
    given.footRow = 198;
    view_.SetGrid(given);
    std::vector<int> doubled;
    view_.onDoubleClick = [&](int row, int) { doubled.push_back(row); };
    Click(0, 4);  // not the lowest heading
    EXPECT_EQ(view_.sortedCol(), std::nullopt);
    Click(1, 4);
    EXPECT_EQ(view_.sortedCol(), 4);
    EXPECT_EQ(view_.shown().cell(2, 4), "303");
    EXPECT_EQ(view_.IndexOf(198, 0).row(), 198);
    EXPECT_EQ(view_.grid().cell(2, 4), "498");
    Drag(Centre(2, 5), Centre(4, 6));
    EXPECT_EQ(view_.SelectedRows(), (Numbers{195, 196, 197}));
    EXPECT_EQ(Selection(), (Numbers{197, 5, 195, 6}));
    CopySelection(view_);
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(),
              "195.5,195.6\r196.5,196.6\r197.5,197.6");
    QTest::mouseDClick(view_.viewport(), Qt::LeftButton, {}, Centre(5, 5));
    view_.Edit([](ResultGrid& grid) { grid.SetCell(100, 4, "1"); });
    EXPECT_EQ(view_.IndexOf(100, 4).row(), 2);
    Click(1, 4);
    EXPECT_EQ(view_.IndexOf(2, 4).row(), 2);
    Click(1, 4);
    EXPECT_EQ(view_.sortedCol(), std::nullopt);
    EXPECT_EQ(view_.shown().cell(100, 4), "1");
    EXPECT_EQ(doubled, Numbers{194});
    view_.onPress = [](int, int, Qt::MouseButton) {};
    Click(1, 4);  // the panel's matter
    EXPECT_EQ(view_.sortedCol(), std::nullopt);
}

TEST_F(GridViewTest, FindsZoomsAndHasKeysForPresses) {
    EXPECT_EQ(view_.Find(QStringLiteral("9.39")), 20);
    EXPECT_EQ(view_.GoToHit(true), 1);
    EXPECT_EQ(Selection(), (Numbers{9, 39, 9, 39}));
    EXPECT_TRUE(view_.viewport()->rect().contains(CellRect(9, 39)));
    EXPECT_EQ(view_.GoToHit(false), 20);
    EXPECT_EQ(view_.GoToHit(true), 1);
    EXPECT_EQ(view_.Find({}), 0);
    EXPECT_EQ(view_.GoToHit(true), 0);

    for (int step = 0; step < 9; ++step) QTest::keyClick(&view_, Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(view_.zoom(), 200);
    EXPECT_EQ(CellRect(1, 1), QRect(80, 40, 80, 40));
    QWheelEvent wheel(QPointF(9, 9), QPointF(9, 9), {}, {0, -120}, Qt::NoButton,
                      Qt::ControlModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(view_.viewport(), &wheel);
    EXPECT_EQ(view_.zoom(), 175);
    QTest::keyClick(&view_, Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(CellRect(1, 1), QRect(40, 20, 40, 20));

    std::vector<Numbers> presses;
    view_.onPress = [&](int row, int col, Qt::MouseButton) { presses.push_back({row, col}); };
    view_.onDoubleClick = [&](int row, int col) { presses.push_back({row, col, 2}); };
    QTest::keyClick(&view_, Qt::Key_Space);
    QTest::keyClick(&view_, Qt::Key_Return);
    EXPECT_EQ(presses, (std::vector<Numbers>{{9, 39}, {9, 39, 2}}));
}

TEST_F(GridViewTest, AnEmptyGridOffersItsStep) {
    int steps = 0;
    view_.setObjectName(QStringLiteral("vs1"));
    view_.SetEmptyHint(QStringLiteral("还没有结果。"), QStringLiteral("点此分析"),
                       [&] { ++steps; });
    auto* hint = view_.findChild<QLabel*>(QStringLiteral("vs1_empty"));
    ASSERT_TRUE(hint);
    EXPECT_FALSE(hint->isVisible());
    view_.SetGrid(ResultGrid(2, 3, 2, 0));
    EXPECT_TRUE(hint->isVisible());
    QTest::mouseClick(hint, Qt::LeftButton, {}, {hint->width() - 12, hint->height() / 2});
    EXPECT_EQ(steps, 1);
}

TEST_F(GridViewTest, AssistiveTechnologySeesATable) {
    QAccessibleInterface* table = QAccessible::queryAccessibleInterface(&view_);
    ASSERT_TRUE(table && table->tableInterface());
    QAccessibleInterface* cell = table->tableInterface()->cellAt(3, 4);
    EXPECT_EQ(cell->text(QAccessible::Name), QStringLiteral("3.0 1.4 3.4"));
    EXPECT_EQ(cell->rect(), CellRect(3, 4).translated(view_.viewport()->mapToGlobal(QPoint(0, 0))));
    EXPECT_EQ(table->tableInterface()->columnDescription(4), QStringLiteral("1.4"));
    view_.selectionModel()->setCurrentIndex(view_.model()->index(90, 20),
                                            QItemSelectionModel::ClearAndSelect);
    EXPECT_EQ(Selection(), (Numbers{90, 20, 90, 20}));
}

}  // namespace
}  // namespace ssq
