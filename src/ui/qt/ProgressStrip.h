// The strip that a long run shows: two fixed labels and the percentage, as a thin panel.
#pragma once

#include <QElapsedTimer>
#include <QFrame>
#include <string>

class QLabel;
class QProgressBar;

namespace ssq {

class ProgressStrip final : public QFrame {
  public:
    // `busyText` stands in Label3, such as "正在学习中.......".
    ProgressStrip(const QString& busyText, QWidget* parent = nullptr);

    // Sets the text of LBLmsg. Cheap enough for every step of a run: what nobody could see is not
    // laid out.
    void Set(const std::string& text);

    // The same at once, for the few texts that mark the steps of a run.
    void Tell(const std::string& text);

    // Shows or hides the strip.
    void Begin();
    void End();

  private:
    void Apply(const QString& text);

    QLabel* message_;
    QProgressBar* bar_;
    QElapsedTimer sinceApplied_;
};

}  // namespace ssq
