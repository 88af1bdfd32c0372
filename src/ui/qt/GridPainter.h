// Draws the part of a ResultGrid that a view shows, straight from the store.
#pragma once

#include <QColor>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <span>

#include "ui/GridGeometry.h"
#include "ui/GridOrder.h"
#include "ui/ResultGrid.h"
#include "ui/qt/GridFonts.h"

class QPainter;

namespace ssq {

struct GridScene {
    const ResultGrid& grid;
    const GridGeometry& geometry;
    QPoint scroll;
    QSize view;
    QColor highlight = {};
    bool showsSelection = true;
    bool focused = false;
    std::span<const CellPlace> hits = {};  // ascending; shown on a ground of their own
    CellPlace cross{-1, -1};               // its row and column are shaded; -1 for none
    int sortedCol = -1;                    // marked in its heading
    bool descending = false;
};

class GridPainter {
  public:
    GridPainter(const GridScene& scene, GridFonts& fonts, QPainter& painter)
        : scene_(scene), fonts_(fonts), painter_(painter) {}

    // Draws everything inside `area` of the view.
    void Paint(const QRect& area);

  private:
    struct Pane {
        GridAxis::Strip rows;
        GridAxis::Strip cols;
        bool fixed = false;

        QRect rect() const;
        // The part of it that an area touches.
        Pane Inside(const QRect& area, const GridScene& scene) const;
    };

    void PaintPane(const Pane& pane, const QRect& area);
    void PaintBacks(const Pane& pane);
    void PaintTexts(const Pane& pane);
    void PaintLines(const Pane& pane);
    void PaintMerges(const QRect& area);
    void PaintFreezeLines(const QRect& area);
    void PaintFootLine(const QRect& area);
    void PaintCross(const QRect& area);
    void PaintSortMark(const QRect& area);
    void PaintSelection(const QRect& area);
    void PaintText(int row, int col, const QRect& rect);
    void PaintMark(const QRect& cell, int textWidth, const QColor& colour);
    void DrawRightLine(int end, int top, int bottom);
    void DrawBottomLine(int end, int left, int right);
    void PaintTick(const QRect& cell, const QColor& colour);
    void PaintFrame(const QRect& rect);
    QColor Ink(int row, int col) const;
    bool IsHit(int row, int col) const;
    std::optional<QColor> OwnGround(int row, int col) const;

    const GridScene& scene_;
    GridFonts& fonts_;
    QPainter& painter_;
};

// Whether the text of a cell is cut short in a rectangle of that size.
bool TextIsClipped(const ResultGrid& grid, int row, int col, const QSize& size, GridFonts& fonts);

}  // namespace ssq
