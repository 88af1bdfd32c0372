// The one widget behind every grid: shows a ResultGrid, keeps its fixed rows and columns in view.
#pragma once

#include <QTableView>
#include <functional>

#include "ui/ResultGrid.h"

namespace ssq {

class GridView final : public QTableView {
    Q_OBJECT

  public:
    explicit GridView(QWidget* parent = nullptr);
    ~GridView() override;

    const ResultGrid& grid() const;

    // Shows a new grid from its top left; the view takes its own copy.
    void SetGrid(ResultGrid grid);

    // Changes the grid on show in place; scroll position and selection stay.
    void Edit(const std::function<void(ResultGrid&)>& change);

    // Sent for a press of the left or right button on a cell, fixed ones included, after the
    // selection has moved there.
    std::function<void(int row, int col, Qt::MouseButton button)> onPress;
    std::function<void(int row, int col)> onDoubleClick;
    // The right button: the panel raises its popup at this place of the screen.
    std::function<void(const QPoint& place)> onPopup;
    // Ctrl+C.
    std::function<void()> onCopy;
};

}  // namespace ssq
