// A ResultGrid as Qt's item model: what selection and assistive technology see. Painting reads
// the grid itself.
#pragma once

#include <QAbstractTableModel>
#include <functional>

#include "ui/ResultGrid.h"

namespace ssq {

class GridModel final : public QAbstractTableModel {
    Q_OBJECT

  public:
    using QAbstractTableModel::QAbstractTableModel;

    const ResultGrid& grid() const { return grid_; }
    void Replace(ResultGrid grid);
    void Change(const std::function<void(ResultGrid&)>& change);
    // Changes that no item shows: widths and the selection.
    void SetColWidth(int col, int twips) { grid_.SetColWidth(col, twips); }
    void Select(int row, int col, int rowSel, int colSel) {
        grid_.Select(row, col, rowSel, colSel);
    }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    // Texts; those for assistive technology name the row and the column, too.
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    // The texts of the last fixed row and of the first fixed column.
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

  private:
    ResultGrid grid_;
};

}  // namespace ssq
