#include "ui/qt/QtHost.h"

#include <QCoreApplication>

#include "ui/qt/Desktop.h"
#include "ui/qt/PanelContext.h"

namespace ssq {

void QtHost::DoShowBox(const std::string& title, const std::string& text) {
    desktop_.ShowBox(Qs(title), Qs(text));
}

void QtHost::DoPump() {
    QCoreApplication::processEvents();
}

}  // namespace ssq
