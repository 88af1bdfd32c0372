// A whole grid outside a view: as one picture, and on pages of paper.
#pragma once

#include <QFont>
#include <QImage>
#include <QString>

#include "ui/ResultGrid.h"

class QPagedPaintDevice;

namespace ssq {

// How the pictured grid looks; the sizes are those of the view it comes from.
struct PictureLook {
    QFont font;
    double zoom = 1;
    double pixelsPerTwip = 1.0 / 15;  // zoom included
    double ratio = 1;                 // device pixels to a pixel
};

// The grid as one long picture, null when it would be larger than 1 GB.
QImage PictureOf(const ResultGrid& grid, const PictureLook& look);

// The grid on as many pages as it needs, smaller where it is wide but not below two fifths of its
// size. The heading rows and fixed columns stand on each page, below them its title and number.
// `dpi` is that of the screen that `look` comes from. False when the device cannot be written.
bool PrintOn(QPagedPaintDevice& device, int dpi, const ResultGrid& grid, const PictureLook& look,
             const QString& title);

}  // namespace ssq
