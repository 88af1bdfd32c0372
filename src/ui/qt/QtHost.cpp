#include "ui/qt/QtHost.h"

#include <QCursor>
#include <QGuiApplication>

#include "ui/qt/Desktop.h"
#include "ui/qt/PanelContext.h"
#include "ui/qt/Qs.h"

namespace ssq {

void QtHost::DoShowBox(const std::string& title, const std::string& text) {
    desktop_.ShowBox(Qs(title), Qs(text), {});
}

void QtHost::DoPump() {
    QGuiApplication::processEvents();
}

void QtHost::DoSetWaiting(bool waiting) {
    if (waiting) {
        QGuiApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
    } else {
        QGuiApplication::restoreOverrideCursor();
    }
}

}  // namespace ssq
