// The strip that a long run shows: two fixed labels and the percentage, as a thin panel.
#pragma once

#include <QFrame>
#include <string>

class QLabel;
class QProgressBar;

namespace ssq {

class ProgressStrip final : public QFrame {
  public:
    // `busyText` stands in Label3, such as "正在学习中.......".
    ProgressStrip(const QString& busyText, QWidget* parent = nullptr);

    // Sets the text of LBLmsg, and the bar where it is a percentage.
    void Tell(const std::string& text);

    // Shows or hides the strip.
    void Begin();
    void End();

  private:
    QLabel* message_;
    QProgressBar* bar_;
};

}  // namespace ssq
