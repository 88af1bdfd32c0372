// A row of controls that goes on in the next line where its window is too narrow.
#pragma once

#include <QHBoxLayout>
#include <vector>

namespace ssq {

// Lays out as any QHBoxLayout while there is room for one line.
class WrappingRow final : public QHBoxLayout {
  public:
    using QHBoxLayout::QHBoxLayout;

    QSize minimumSize() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    int minimumHeightForWidth(int width) const override { return heightForWidth(width); }
    void setGeometry(const QRect& area) override;

  private:
    using Piece = std::vector<QLayoutItem*>;

    // What no line end parts: a control with its label.
    std::vector<Piece> Pieces() const;
    int WidthOf(const Piece& piece) const;
    bool FitsOneLine(int width) const { return width >= QHBoxLayout::minimumSize().width(); }

    // Goes through the lines, in which `place` gets each item and its area. Returns the height.
    template <typename Place>
    int GoThrough(const QRect& area, Place place) const;
};

}  // namespace ssq
