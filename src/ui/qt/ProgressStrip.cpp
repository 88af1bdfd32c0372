#include "ui/qt/ProgressStrip.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>

#include "ui/qt/PanelContext.h"
#include "ui/qt/Qs.h"

namespace ssq {

namespace {

constexpr qint64 kRefreshMs = 8;  // a little below the pace of the event loop in a run

}  // namespace

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

void ProgressStrip::Set(const std::string& text) {
    if (sinceApplied_.isValid() && sinceApplied_.elapsed() < kRefreshMs) return;
    Apply(Qs(text));
}

void ProgressStrip::Tell(const std::string& text) {
    Apply(Qs(text));
}

void ProgressStrip::Begin() {
    Apply({});
    bar_->setValue(0);
    sinceApplied_.invalidate();
    show();
}

void ProgressStrip::End() {
    hide();
}

void ProgressStrip::Apply(const QString& text) {
    message_->setText(text);
    bool isNumber = false;
    const double percent = text.toDouble(&isNumber);
    if (isNumber) bar_->setValue(static_cast<int>(percent * 100));
    sinceApplied_.start();
}

}  // namespace ssq
