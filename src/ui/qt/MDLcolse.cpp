#include "ui/qt/MDLcolse.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QWidget>

namespace ssq {

namespace {

// Refuses what the missing close entry of a window would have sent.
class CloseBlocker final : public QObject {
  public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Close) {
            event->ignore();
            return true;
        }
        const bool escape = event->type() == QEvent::KeyPress &&
                            static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
        return escape || QObject::eventFilter(watched, event);
    }
};

}  // namespace

void RemoveCloseEntry(QWidget& window, int flag) {
    // The usual menu is Restore, Move, Size, Minimize, Maximize, a separator, Close: third and
    // fourth from its end are Maximize and Minimize, the last two Close and the separator.
    const bool keepsClose = flag > 0;
    window.setWindowFlag(Qt::CustomizeWindowHint);
    window.setWindowFlag(Qt::WindowTitleHint);
    window.setWindowFlag(Qt::WindowMinimizeButtonHint, !keepsClose);
    window.setWindowFlag(Qt::WindowMaximizeButtonHint, !keepsClose);
    window.setWindowFlag(Qt::WindowCloseButtonHint, keepsClose);
    if (!keepsClose) window.installEventFilter(new CloseBlocker(&window));
}

}  // namespace ssq
