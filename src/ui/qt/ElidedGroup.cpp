#include "ui/qt/ElidedGroup.h"

#include <QHelpEvent>
#include <QLayout>
#include <QStyleOptionGroupBox>
#include <QToolTip>
#include <algorithm>

namespace ssq {

namespace {

constexpr int kBesideCaption = 24;    // pixels of the frame on both sides of the caption
constexpr int kCaptionRoom = 160;     // pixels that a group asks for its caption at least
constexpr int kLongestToolTip = 500;  // characters; a tooltip is as large as its text

// Measuring a text of any length takes time, and no screen shows more than this.
QString OneLine(const QString& text) {
    constexpr qsizetype kMostShown = 2000;
    QString line = text.left(kMostShown);
    return line.replace(QLatin1Char('\n'), QLatin1Char(' '))
        .replace(QLatin1Char('\t'), QLatin1Char(' '));
}

}  // namespace

QString ElidedGroup::ShownCaption() const {
    return fontMetrics().elidedText(OneLine(title()), Qt::ElideRight, width() - kBesideCaption);
}

void ElidedGroup::initStyleOption(QStyleOptionGroupBox* option) const {
    QGroupBox::initStyleOption(option);
    option->text = ShownCaption();
}

QSize ElidedGroup::minimumSizeHint() const {
    const int caption = std::min(fontMetrics().horizontalAdvance(OneLine(title())), kCaptionRoom);
    const QSize content = layout() ? layout()->totalMinimumSize() : QSize();
    QStyleOptionGroupBox option;
    QGroupBox::initStyleOption(&option);
    option.text.clear();
    const QSize own(caption + kBesideCaption, fontMetrics().height());
    return style()->sizeFromContents(QStyle::CT_GroupBox, &option, own, this).expandedTo(content);
}

bool ElidedGroup::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QGroupBox::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const bool onCaption = help->pos().y() < contentsRect().top();
    if (onCaption && ShownCaption() != title()) {
        QString whole = title().left(kLongestToolTip);
        if (whole.size() < title().size()) whole += QStringLiteral("…");
        QToolTip::showText(help->globalPos(), whole.toHtmlEscaped(), this);
    } else {
        QToolTip::hideText();
    }
    return true;
}

}  // namespace ssq
