#include "charts/frmQDDZ.h"

#include <QBoxLayout>
#include <QPlainTextEdit>
#include <QScreen>
#include <algorithm>

#include "charts/NumberSegments.h"
#include "ui/qt/Qs.h"
#include "ui/qt/placing.h"

namespace ssq {

frmQDDZ::frmQDDZ(const PanelContext& context, QWidget* parent)
    : Panel(context, parent, {"frmQDDZ", " 号码区段对照表", 0, 0}) {
    constexpr int kAir = 8;  // pixels around the lines
    auto* text = new QPlainTextEdit(Qs(SegmentList()), this);
    text->setObjectName(QStringLiteral("Text1"));
    text->setReadOnly(true);
    text->setLineWrapMode(QPlainTextEdit::NoWrap);
    const QSize lines = text->fontMetrics().size(0, text->toPlainText());
    const int frame =
        2 * (text->frameWidth() + static_cast<int>(text->document()->documentMargin()));
    text->setMinimumSize(lines.width() + frame + kAir, lines.height() + frame + kAir);
    (new QVBoxLayout(this))->addWidget(text);
    adjustSize();
}

void frmQDDZ::ShowBeside(const QWidget& window) {
    show();
    const QRect screen = window.screen()->availableGeometry();
    const QPoint beside = window.frameGeometry().topRight() + QPoint(1, 0);
    move(std::min(beside.x(), screen.right() + 1 - frameGeometry().width()),
         std::max(beside.y(), screen.top()));
    BringUp(*this);
}

}  // namespace ssq
