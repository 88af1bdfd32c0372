#include "ui/qt/GridModel.h"

#include <QStringList>

#include "ui/qt/PanelContext.h"
#include "ui/qt/Qs.h"

namespace ssq {

void GridModel::Replace(ResultGrid grid) {
    beginResetModel();
    grid_ = std::move(grid);
    endResetModel();
}

void GridModel::Change(const std::function<void(ResultGrid&)>& change) {
    const int rowsBefore = grid_.rows();
    const int colsBefore = grid_.cols();
    change(grid_);
    // Whether the shape changes is known only afterwards; nobody looks at the model in between.
    if (grid_.rows() != rowsBefore || grid_.cols() != colsBefore) {
        beginResetModel();
        endResetModel();
    } else if (grid_.rows() > 0 && grid_.cols() > 0) {
        Q_EMIT dataChanged(index(0, 0), index(grid_.rows() - 1, grid_.cols() - 1));
    }
}

int GridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : grid_.rows();
}

int GridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : grid_.cols();
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const QString text = Qs(grid_.cell(index.row(), index.column()));
    if (role == Qt::DisplayRole) return text;
    if (role != Qt::AccessibleTextRole) return {};
    // Read aloud, a cell says where it stands: its row, its column, its text.
    const bool body = index.row() >= grid_.fixedRows() && index.column() >= grid_.fixedCols();
    if (!body) return text;
    QStringList words{headerData(index.row(), Qt::Vertical).toString(),
                      headerData(index.column(), Qt::Horizontal).toString(),
                      text.isEmpty() ? QStringLiteral("空") : text};
    words.removeAll(QString());
    return words.join(u' ');
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole) return {};
    if (orientation == Qt::Vertical) {
        return grid_.fixedCols() > 0 ? Qs(grid_.cell(section, 0)) : QString();
    }
    return Qs(grid_.cell(grid_.fixedRows() - 1, section));
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
}

}  // namespace ssq
