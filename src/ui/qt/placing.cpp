#include "ui/qt/placing.h"

#include <QApplication>
#include <QScreen>
#include <QWidget>
#include <algorithm>

namespace ssq {

namespace {

// What a window's frame takes at most, in pixels, before there is one to ask.
constexpr int kFrameSides = 12;
constexpr int kFrameTitle = 40;

constexpr QPoint kStep(28, 28);  // pixels from one window of a cascade to the next
constexpr int kMostSteps = 8;

QRect ScreenOf(const QWidget& window) {
    const QWidget* owner = window.parentWidget();
    return (owner ? owner->window() : &window)->screen()->availableGeometry();
}

bool IsTaken(const QPoint& place, const QWidget& window) {
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::ranges::any_of(windows, [&](const QWidget* other) {
        return other != &window && other->isVisible() &&
               other->parentWidget() == window.parentWidget() &&
               (other->geometry().center() - place).manhattanLength() < kStep.x();
    });
}

void PlaceByOwner(QWidget& window) {
    const QWidget* owner = window.parentWidget();
    if (!owner || window.isMaximized()) return;
    QPoint centre = owner->window()->geometry().center();
    for (int step = 0; step < kMostSteps && IsTaken(centre, window); ++step) centre += kStep;
    QRect frame(QPoint(), window.size() + QSize(kFrameSides, kFrameTitle));
    frame.moveCenter(centre);
    const QRect screen = ScreenOf(window);
    window.move(std::max(screen.left(), std::min(frame.left(), screen.right() - frame.width())),
                std::max(screen.top(), std::min(frame.top(), screen.bottom() - frame.height())));
}

}  // namespace

bool FitToScreen(QWidget& window, QSize wished) {
    const QSize room = ScreenOf(window).size() - QSize(kFrameSides, kFrameTitle);
    window.resize(wished.boundedTo(room));
    return wished == wished.boundedTo(room);
}

void FitOrMaximize(QWidget& window, QSize wished) {
    if (!FitToScreen(window, wished)) window.setWindowState(Qt::WindowMaximized);
}

void BringUp(QWidget& window) {
    if (window.isMinimized()) window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    if (!window.isVisible()) PlaceByOwner(window);
    window.show();
    window.raise();
    window.activateWindow();
}

}  // namespace ssq
