#include "ui/qt/PanelDialog.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/qt/keys.h"
#include "ui/qt/placing.h"

namespace ssq {

PanelDialog::PanelDialog(const PanelContext& context, QWidget* parent, const Panel::Form& form)
    : QDialog(parent), context_(context), column_(new QVBoxLayout(this)) {
    setObjectName(QString::fromUtf8(form.name));
    setWindowTitle(QString::fromUtf8(form.title));
    FitToScreen(*this, {form.width, form.height});
}

void PanelDialog::SetMainButton(QPushButton* button) {
    mainButton_ = button;
    button->setDefault(true);
}

void PanelDialog::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Close)) {
        close();
    } else if (!TakeKey(context_, *this, mainButton_, *event)) {
        QDialog::keyPressEvent(event);
    }
}

}  // namespace ssq
