#include "ui/qt/ChanceRemark.h"

#include <QTextDocumentFragment>

#include "ui/qt/Qs.h"

namespace ssq {

ChanceRemark::ChanceRemark(const PanelContext& context, QWidget* parent) : QLabel(parent) {
    setObjectName(QStringLiteral("lblJiHui"));
    setTextFormat(Qt::RichText);
    setTextInteractionFlags(Qt::TextBrowserInteraction);
    setWordWrap(true);
    connect(this, &QLabel::linkActivated, this, [this, open = context.openBlindTest] {
        if (open) open(blindTest_);
    });
}

void ChanceRemark::Show(const std::string& remark, ControlTexts blindTest) {
    blindTest_ = std::move(blindTest);
    QString text = Qs(remark).toHtmlEscaped();
    if (!remark.empty() && !blindTest_.empty()) {
        text += QStringLiteral(" <a href=\"mangce\">盲测</a>");
    }
    setText(text);
}

QString ChanceRemark::plainText() const {
    return QTextDocumentFragment::fromHtml(text()).toPlainText();
}

}  // namespace ssq
