#include "ui/qt/GridPicture.h"

#include <QPagedPaintDevice>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <vector>

#include "ui/qt/GridFonts.h"
#include "ui/qt/GridPainter.h"

namespace ssq {

namespace {

constexpr double kMillimetresPerInch = 25.4;

// A grid laid out at its full size.
class Layout {
  public:
    Layout(const ResultGrid& grid, const PictureLook& look)
        : grid_(grid),
          fonts_(look.font, look.zoom),
          geometry_(grid, GridMetricsFor(grid, fonts_, look.pixelsPerTwip)) {}

    const GridGeometry& geometry() const { return geometry_; }
    QSize size() const { return {geometry_.cols().extent(), geometry_.rows().extent()}; }

    void Paint(QPainter& painter, const QPoint& scroll, const QSize& view) {
        GridScene scene{grid_, geometry_, scroll, view};
        scene.showsSelection = false;
        GridPainter(scene, fonts_, painter).Paint({QPoint(), view});
    }

  private:
    const ResultGrid& grid_;
    GridFonts fonts_;
    GridGeometry geometry_;
};

// The body cells first..last of a page.
struct Span {
    int first;
    int last;
};

// Cuts the body of an axis into pieces that fit beside its fixed cells; one cell at least.
std::vector<Span> Pieces(const GridAxis& axis, double room) {
    std::vector<Span> pieces;
    for (int index = axis.fixed(); index < axis.count(); ++index) {
        const bool fits =
            !pieces.empty() &&
            axis.End(index, 0) - axis.Begin(pieces.back().first, 0) + axis.fixedExtent() <= room;
        if (fits) {
            pieces.back().last = index;
        } else {
            pieces.push_back({index, index});
        }
    }
    if (pieces.empty()) pieces.push_back({0, axis.count() - 1});
    return pieces;
}

// The scroll that brings a piece behind the fixed cells, and how much is shown then.
int ScrollOf(const GridAxis& axis, const Span& piece) {
    return piece.first < axis.fixed() ? 0 : axis.Begin(piece.first, 0) - axis.fixedExtent();
}
int ExtentOf(const GridAxis& axis, const Span& piece) {
    return axis.End(piece.last, 0) - ScrollOf(axis, piece);
}

double Inches(double millimetres) {
    return millimetres / kMillimetresPerInch;
}

}  // namespace

QImage PictureOf(const ResultGrid& grid, const PictureLook& look) {
    constexpr double kMostBytes = 1 << 30;
    Layout layout(grid, look);
    const QSize size(static_cast<int>(std::lround(layout.size().width() * look.ratio)),
                     static_cast<int>(std::lround(layout.size().height() * look.ratio)));
    constexpr int kBytesPerPixel = 4;
    if (size.isEmpty() || double(kBytesPerPixel) * size.width() * size.height() > kMostBytes) {
        return {};
    }
    QImage picture(size, QImage::Format_RGB32);
    if (picture.isNull()) return {};
    picture.setDevicePixelRatio(look.ratio);
    QPainter painter(&picture);
    layout.Paint(painter, {}, layout.size());
    return picture;
}

bool PrintOn(QPagedPaintDevice& device, int dpi, const ResultGrid& grid, const PictureLook& look,
             const QString& title) {
    constexpr double kMarginMm = 10;
    constexpr double kFooterMm = 6;
    constexpr double kLeastScale = 0.4;
    Layout layout(grid, look);
    const GridAxis& rows = layout.geometry().rows();
    const GridAxis& cols = layout.geometry().cols();
    const double paperWidth =
        Inches(QPageSize(QPageSize::A4).size(QPageSize::Millimeter).width() - 2 * kMarginMm) * dpi;
    const bool wide = cols.extent() > paperWidth;
    device.setPageSize(QPageSize(QPageSize::A4));
    device.setPageOrientation(wide ? QPageLayout::Landscape : QPageLayout::Portrait);
    device.setPageMargins({kMarginMm, kMarginMm, kMarginMm, kMarginMm}, QPageLayout::Millimeter);

    QPainter painter;
    if (!painter.begin(&device)) return false;
    const QSizeF page = QSizeF(device.width(), device.height());
    const double footer = Inches(kFooterMm) * dpi;
    const double scale = std::clamp(page.width() / cols.extent(), kLeastScale, 1.0);
    const auto across = Pieces(cols, page.width() / scale);
    const auto down = Pieces(rows, (page.height() - footer) / scale);
    const std::size_t pages = across.size() * down.size();
    std::size_t number = 0;
    for (const Span& rowPiece : down) {
        for (const Span& colPiece : across) {
            if (number++ > 0) device.newPage();
            painter.save();
            painter.scale(scale, scale);
            layout.Paint(painter, {ScrollOf(cols, colPiece), ScrollOf(rows, rowPiece)},
                         {ExtentOf(cols, colPiece), ExtentOf(rows, rowPiece)});
            painter.restore();
            painter.setClipping(false);
            painter.setFont(look.font);
            painter.setPen(Qt::black);
            painter.drawText(QRectF(0, page.height() - footer, page.width(), footer),
                             Qt::AlignHCenter | Qt::AlignBottom,
                             QStringLiteral("%1　第 %2 / %3 页").arg(title).arg(number).arg(pages));
        }
    }
    return painter.end();
}

}  // namespace ssq
