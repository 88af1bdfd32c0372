#include "ui/qt/keys.h"

#include <QKeyEvent>
#include <QPushButton>

#include "ui/qt/manual.h"

namespace ssq {

namespace {

void Press(QPushButton* button) {
    if (button) button->click();
}

}  // namespace

bool TakeKey(const PanelContext& context, const QWidget& window, QPushButton* mainButton,
             const QKeyEvent& event) {
    switch (event.key()) {
        case Qt::Key_F1:
            OpenManual(context, window.objectName());
            return true;
        case Qt::Key_F5:
            Press(mainButton);
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter: {
            auto* focused = qobject_cast<QPushButton*>(window.focusWidget());
            Press(focused ? focused : mainButton);
            return true;
        }
        default:
            return false;
    }
}

}  // namespace ssq
