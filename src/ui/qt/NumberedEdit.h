// A many-line text with line numbers, in which lines can be marked as wrong.
#pragma once

#include <QPlainTextEdit>
#include <map>
#include <string>

namespace ssq {

class NumberedEdit final : public QPlainTextEdit {
    Q_OBJECT

  public:
    explicit NumberedEdit(QWidget* parent = nullptr);

    // In UTF-8, one "\n" between lines.
    std::string Text() const { return toPlainText().toStdString(); }

    // Changes the text to this one as a single step that can be taken back. What is equal at the
    // begin and at the end stays untouched, and with it the cursor.
    void ChangeTo(const std::string& text);

    // Marks these lines, counted from 1, and no others; each shows its text over the mouse.
    void MarkLines(std::map<int, QString> faults);

  protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;

  private:
    class Margin;

    int MarginWidth() const;
    void PlaceMargin();
    void PaintMargin(const QRect& area);
    void ShowMarks();

    QWidget* margin_;
    std::map<int, QString> faults_;
};

}  // namespace ssq
