// The desktop of a scripted session: records what the user would see, and answers at once.
#pragma once

#include <QJsonArray>
#include <QString>
#include <deque>

#include "ui/qt/Desktop.h"

class QAction;

namespace ssq {

class ScriptDesktop final : public Desktop {
  public:
    // Answers are used up one by one, in the order given. A question without one gets OK, a file
    // dialog is cancelled.
    void AnswerQuestion(bool ok) { questionAnswers_.push_back(ok); }
    void AnswerFileDialog(const QString& file) { fileAnswers_.push_back(file); }

    // Lets the next popup be answered with the entry of that object name or text.
    void ChooseInPopup(const QString& entry);
    // Ends the wait for that popup. Why its entry was not chosen; empty when it was.
    QString EndPopup();

    // The boxes ({"title","text"}), and the links, documents and programs opened since last taken.
    QJsonArray TakeMessages() { return std::exchange(messages_, {}); }
    QJsonArray TakeOpened() { return std::exchange(opened_, {}); }

    void ShowBox(const QString& title, const QString& text) override;
    bool Confirm(const QString& title, const QString& text) override;
    QString AskSaveFile(const QString& pattern) override;
    QString AskOpenFile(const QString& title, const QString& folder,
                        const QString& pattern) override;
    void Open(const QString& urlOrFile) override;
    void StartProgram(const QString& file, const QString& arguments) override;
    void RaisePopup(QMenu& menu, const QPoint& place) override;

  private:
    QString TakeFileAnswer();
    QAction* FindWished(QMenu& menu);

    std::deque<bool> questionAnswers_;
    std::deque<QString> fileAnswers_;
    QJsonArray messages_;
    QJsonArray opened_;
    QString wishedEntry_;
    QString popupFault_;
};

}  // namespace ssq
