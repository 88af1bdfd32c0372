#include "Panels.h"

#include <QApplication>
#include <QEvent>
#include <algorithm>

namespace ssq {

namespace {

bool IsPanel(const QWidget& widget) {
    const Qt::WindowType type = widget.windowType();
    return widget.isWindow() && (type == Qt::Window || type == Qt::Dialog) &&
           !widget.objectName().isEmpty();
}

bool IsOpenModal(const QWidget& widget) {
    return widget.isWindow() && widget.isModal() && widget.isVisible() &&
           widget.windowType() != Qt::Popup;
}

}  // namespace

Panels::Panels() {
    qApp->installEventFilter(this);
}

QWidget* Panels::Addressed() const {
    if (QWidget* modal = Modal()) return modal;
    for (auto panel = opened_.crbegin(); panel != opened_.crend(); ++panel) {
        if (*panel && (*panel)->isVisible()) return *panel;
    }
    return nullptr;
}

bool Panels::Address(const QString& name) {
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows) {
        if (window->objectName() != name || !window->isVisible() || !IsPanel(*window)) continue;
        MoveToFront(window);
        return true;
    }
    return false;
}

QWidget* Panels::Modal() {
    QWidget* modal = QApplication::activeModalWidget();
    return modal && IsOpenModal(*modal) ? modal : nullptr;
}

int Panels::ModalCount() {
    const QWidgetList windows = QApplication::topLevelWidgets();
    return static_cast<int>(
        std::count_if(windows.begin(), windows.end(),
                      [](const QWidget* window) { return IsOpenModal(*window); }));
}

std::string Panels::Name(const QWidget& window) {
    return window.objectName().isEmpty() ? window.metaObject()->className()
                                         : window.objectName().toStdString();
}

// A panel that is already open is brought up by raising it, which changes its place in the stack.
bool Panels::eventFilter(QObject* object, QEvent* event) {
    const bool shown = event->type() == QEvent::Show;
    if ((shown || event->type() == QEvent::ZOrderChange) && object->isWidgetType()) {
        auto* widget = static_cast<QWidget*>(object);
        if (widget->isWindow() && widget->isModal()) {
            if (shown && onModalShown) onModalShown();
        } else if (IsPanel(*widget)) {
            MoveToFront(widget);
        }
    }
    return QObject::eventFilter(object, event);
}

void Panels::MoveToFront(QWidget* panel) {
    opened_.removeIf([panel](const QPointer<QWidget>& known) { return !known || known == panel; });
    opened_.append(panel);
}

}  // namespace ssq
