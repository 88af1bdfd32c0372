// The desktop of a scripted session: records what the user would see, and answers at once.
#pragma once

#include <QList>
#include <deque>
#include <string>
#include <utility>

#include "Json.h"
#include "ui/qt/Desktop.h"

class QAction;

namespace ssq {

// The entry of that object name or text, submenus included; a submenu's own entry also goes by the
// submenu's object name. Null when there is none.
QAction* FindEntry(const QList<QAction*>& entries, const QString& name);

// The same, such that a user could choose it; throws where he could not.
QAction& UsableEntry(const QList<QAction*>& entries, const QString& name);

class ScriptDesktop final : public Desktop {
  public:
    // Answers are used up one by one, in the order given. A question without one gets OK, a file
    // dialog is cancelled.
    void AnswerQuestion(bool ok) { questionAnswers_.push_back(ok); }
    void AnswerFileDialog(const QString& file) { fileAnswers_.push_back(file); }

    // Lets the next popup be answered with the entry of that object name or text.
    void ChooseInPopup(const QString& entry);
    // Ends the wait for that popup. Why its entry was not chosen; empty when it was.
    std::string EndPopup();

    // The boxes ({"title","text"}, with "note" where there is one), and the links, documents and
    // programs opened since last taken.
    Json TakeMessages() { return std::exchange(messages_, Json::array()); }
    Json TakeOpened() { return std::exchange(opened_, Json::array()); }

    void ShowBox(const QString& title, const QString& text, const QString& note) override;
    bool Confirm(const QString& title, const QString& text) override;
    QString AskSaveFile(const QString&, const QString&) override { return TakeFileAnswer(); }
    QString AskOpenFile(const QString&, const QString&, const QString&) override {
        return TakeFileAnswer();
    }
    void Open(const QString& urlOrFile) override;
    void StartProgram(const QString& file, const QString& arguments) override;
    bool AskPrinter(QPrinter&) override { return false; }
    void RaisePopup(QMenu& menu, const QPoint& place) override;

  private:
    QString TakeFileAnswer();

    std::deque<bool> questionAnswers_;
    std::deque<QString> fileAnswers_;
    Json messages_ = Json::array();
    Json opened_ = Json::array();
    QString wishedEntry_;
    std::string popupFault_;
};

}  // namespace ssq
