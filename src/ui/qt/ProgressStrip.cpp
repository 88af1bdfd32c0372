#include "ui/qt/ProgressStrip.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>

#include "ui/qt/PanelContext.h"
#include "ui/qt/Qs.h"

namespace ssq {

ProgressStrip::ProgressStrip(const QString& busyText, QWidget* parent)
    : QFrame(parent), message_(new QLabel), bar_(new QProgressBar) {
    setObjectName(QStringLiteral("frmMsg"));
    setFrameShape(QFrame::StyledPanel);
    auto* busy = new QLabel(busyText);
    busy->setObjectName(QStringLiteral("Label3"));
    auto* done = new QLabel(QStringLiteral("已完成:"));
    done->setObjectName(QStringLiteral("Label4"));
    message_->setObjectName(QStringLiteral("LBLmsg"));
    bar_->setRange(0, 10000);
    bar_->setTextVisible(false);
    bar_->setMaximumHeight(10);

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(8, 4, 8, 4);
    row->addWidget(busy);
    row->addWidget(done);
    row->addWidget(message_);
    row->addWidget(bar_, 1);
    hide();
}

void ProgressStrip::Tell(const std::string& text) {
    const QString shown = Qs(text);
    message_->setText(shown);
    bool isNumber = false;
    const double percent = shown.toDouble(&isNumber);
    if (isNumber) bar_->setValue(static_cast<int>(percent * 100));
}

void ProgressStrip::Begin() {
    message_->clear();
    bar_->setValue(0);
    show();
}

void ProgressStrip::End() {
    hide();
}

}  // namespace ssq
