#include "ui/qt/NumberedEdit.h"

#include <QHelpEvent>
#include <QMimeData>
#include <QPainter>
#include <QTextBlock>
#include <QToolTip>
#include <algorithm>
#include <utility>

#include "ui/qt/look.h"

namespace ssq {

namespace {

constexpr int kMarginPad = 6;  // pixels on both sides of the numbers
constexpr int kFewestDigits = 3;
constexpr QRgb kFaultBack = qRgb(0xFB, 0xDD, 0xD6);
constexpr QRgb kFaultBackOnDark = qRgb(0x5C, 0x2B, 0x24);

// A line of the text is a block of the document, never a part of one.
QString AsBlocks(QString text) {
    return text.replace(QChar(QChar::LineSeparator), u'\n');
}

}  // namespace

class NumberedEdit::Margin final : public QWidget {
  public:
    explicit Margin(NumberedEdit* edit) : QWidget(edit), edit_(edit) {}

    QSize sizeHint() const override { return {edit_->MarginWidth(), 0}; }

  protected:
    void paintEvent(QPaintEvent* event) override { edit_->PaintMargin(event->rect()); }

  private:
    NumberedEdit* edit_;
};

NumberedEdit::NumberedEdit(QWidget* parent) : QPlainTextEdit(parent), margin_(new Margin(this)) {
    setTabChangesFocus(true);
    setLineWrapMode(NoWrap);
    connect(this, &QPlainTextEdit::blockCountChanged, this, [this] { PlaceMargin(); });
    connect(this, &QPlainTextEdit::updateRequest, this, [this](const QRect& area, int dy) {
        if (dy != 0) {
            margin_->scroll(0, dy);
        } else {
            margin_->update(0, area.y(), margin_->width(), area.height());
        }
    });
    PlaceMargin();
}

void NumberedEdit::ChangeTo(const std::string& text) {
    const QString before = toPlainText();
    const QString after = AsBlocks(QString::fromStdString(text));
    const auto head = std::ranges::mismatch(before, after).in1 - before.begin();
    qsizetype tail = 0;
    const qsizetype longest = std::min(before.size(), after.size()) - head;
    while (tail < longest && before[before.size() - 1 - tail] == after[after.size() - 1 - tail]) {
        ++tail;
    }
    QTextCursor cursor(document());
    cursor.setPosition(static_cast<int>(head));
    cursor.setPosition(static_cast<int>(before.size() - tail), QTextCursor::KeepAnchor);
    cursor.insertText(after.mid(head, after.size() - head - tail));
}

void NumberedEdit::MarkLines(std::map<int, QString> faults) {
    if (faults == faults_) return;
    faults_ = std::move(faults);
    ShowMarks();
}

void NumberedEdit::ShowMarks() {
    QList<QTextEdit::ExtraSelection> marks;
    for (const auto& [line, fault] : faults_) {
        const QTextBlock block = document()->findBlockByNumber(line - 1);
        if (!block.isValid()) continue;
        QTextEdit::ExtraSelection mark;
        mark.cursor = QTextCursor(block);
        mark.format.setBackground(QColor(IsDark(palette()) ? kFaultBackOnDark : kFaultBack));
        mark.format.setProperty(QTextFormat::FullWidthSelection, true);
        marks.append(mark);
    }
    setExtraSelections(marks);
    margin_->update();
}

bool NumberedEdit::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QPlainTextEdit::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const QPoint point = viewport()->mapFromGlobal(help->globalPos());
    const auto fault = faults_.find(cursorForPosition(point).blockNumber() + 1);
    QToolTip::showText(help->globalPos(), fault == faults_.end() ? QString() : fault->second, this);
    return true;
}

void NumberedEdit::resizeEvent(QResizeEvent* event) {
    QPlainTextEdit::resizeEvent(event);
    PlaceMargin();
}

void NumberedEdit::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::InsertLineSeparator)) {
        textCursor().insertBlock();
        ensureCursorVisible();
    } else {
        QPlainTextEdit::keyPressEvent(event);
    }
}

void NumberedEdit::insertFromMimeData(const QMimeData* source) {
    if (!source->hasText()) return;
    textCursor().insertText(AsBlocks(source->text()));
    ensureCursorVisible();
}

int NumberedEdit::MarginWidth() const {
    const auto digits = std::max<qsizetype>(kFewestDigits, QString::number(blockCount()).size());
    return 2 * kMarginPad + fontMetrics().horizontalAdvance(u'9') * static_cast<int>(digits);
}

void NumberedEdit::PlaceMargin() {
    setViewportMargins(MarginWidth(), 0, 0, 0);
    const QRect inside = contentsRect();
    margin_->setGeometry(inside.left(), inside.top(), MarginWidth(), inside.height());
}

void NumberedEdit::PaintMargin(const QRect& area) {
    QPainter painter(margin_);
    painter.fillRect(area, palette().color(QPalette::AlternateBase));
    QTextBlock block = firstVisibleBlock();
    double top = blockBoundingGeometry(block).translated(contentOffset()).top();
    for (; block.isValid() && top <= area.bottom(); block = block.next()) {
        const double height = blockBoundingRect(block).height();
        const int line = block.blockNumber() + 1;
        const bool faulty = faults_.contains(line);
        painter.setPen(faulty ? FaultInk(palette()) : palette().color(QPalette::PlaceholderText));
        painter.drawText(QRectF(0, top, margin_->width() - kMarginPad, height),
                         Qt::AlignRight | Qt::AlignVCenter, QString::number(line));
        top += height;
    }
}

}  // namespace ssq
