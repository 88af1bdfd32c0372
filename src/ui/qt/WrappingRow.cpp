#include "ui/qt/WrappingRow.h"

#include <QLabel>
#include <algorithm>

namespace ssq {

std::vector<WrappingRow::Piece> WrappingRow::Pieces() const {
    std::vector<Piece> pieces;
    const QWidget* buddy = nullptr;
    for (int i = 0; i < count(); ++i) {
        QLayoutItem* item = itemAt(i);
        if (item->isEmpty()) continue;  // a spacer, or a hidden control
        if (pieces.empty() || !buddy || buddy != item->widget()) pieces.emplace_back();
        pieces.back().push_back(item);
        const auto* label = qobject_cast<const QLabel*>(item->widget());
        buddy = label ? label->buddy() : nullptr;
    }
    return pieces;
}

int WrappingRow::WidthOf(const Piece& piece) const {
    int width = -spacing();
    for (const QLayoutItem* item : piece) width += spacing() + item->sizeHint().width();
    return width;
}

template <typename Place>
int WrappingRow::GoThrough(const QRect& area, Place place) const {
    const int lineHeight = QHBoxLayout::minimumSize().height();
    QPoint at = area.topLeft();
    for (const Piece& piece : Pieces()) {
        const bool isFirst = at.x() == area.left();
        if (!isFirst && at.x() + WidthOf(piece) > area.left() + area.width()) {
            at = QPoint(area.left(), at.y() + lineHeight + spacing());
        }
        for (QLayoutItem* item : piece) {
            const int room = area.left() + area.width() - at.x();
            const int width =
                std::max(item->minimumSize().width(), std::min(item->sizeHint().width(), room));
            place(*item, QRect(at, QSize(width, lineHeight)));
            at.rx() += width + spacing();
        }
    }
    return at.y() + lineHeight - area.top();
}

QSize WrappingRow::minimumSize() const {
    int width = 0;
    for (const Piece& piece : Pieces()) width = std::max(width, WidthOf(piece));
    return {width, QHBoxLayout::minimumSize().height()};
}

int WrappingRow::heightForWidth(int width) const {
    if (FitsOneLine(width)) return QHBoxLayout::minimumSize().height();
    return GoThrough(QRect(0, 0, width, 0), [](QLayoutItem&, const QRect&) {});
}

void WrappingRow::setGeometry(const QRect& area) {
    QHBoxLayout::setGeometry(area);
    if (FitsOneLine(area.width())) return;
    GoThrough(area, [](QLayoutItem& item, const QRect& place) {
        QRect own(QPoint(),
                  QSize(place.width(), std::min(item.sizeHint().height(), place.height())));
        own.moveCenter(place.center());
        item.setGeometry(own);
    });
}

}  // namespace ssq
