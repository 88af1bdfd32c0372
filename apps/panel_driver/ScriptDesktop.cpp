#include "ScriptDesktop.h"

#include <QJsonObject>
#include <QMenu>
#include <utility>

#include "MenuEntry.h"

namespace ssq {

void ScriptDesktop::ChooseInPopup(const QString& entry) {
    wishedEntry_ = entry;
    popupFault_ = u"no popup was raised"_qs;
}

QString ScriptDesktop::EndPopup() {
    wishedEntry_.clear();
    return std::exchange(popupFault_, {});
}

void ScriptDesktop::ShowBox(const QString& title, const QString& text) {
    messages_.append(QJsonObject{{u"title"_qs, title}, {u"text"_qs, text}});
}

bool ScriptDesktop::Confirm(const QString& title, const QString& text) {
    ShowBox(title, text);
    if (questionAnswers_.empty()) return true;
    const bool answer = questionAnswers_.front();
    questionAnswers_.pop_front();
    return answer;
}

QString ScriptDesktop::AskSaveFile(const QString&) {
    return TakeFileAnswer();
}

QString ScriptDesktop::AskOpenFile(const QString&, const QString&, const QString&) {
    return TakeFileAnswer();
}

QString ScriptDesktop::TakeFileAnswer() {
    if (fileAnswers_.empty()) return {};
    QString answer = fileAnswers_.front();
    fileAnswers_.pop_front();
    return answer;
}

void ScriptDesktop::Open(const QString& urlOrFile) {
    opened_.append(urlOrFile);
}

void ScriptDesktop::StartProgram(const QString& file, const QString& arguments) {
    opened_.append(file + u' ' + arguments);
}

void ScriptDesktop::RaisePopup(QMenu& menu, const QPoint&) {
    Q_EMIT menu.aboutToShow();
    QAction* wished = wishedEntry_.isEmpty() ? nullptr : FindWished(menu);
    Q_EMIT menu.aboutToHide();
    if (wished) wished->trigger();
}

QAction* ScriptDesktop::FindWished(QMenu& menu) {
    const QString entry = std::exchange(wishedEntry_, {});
    QAction* found = FindMenuEntry(menu.actions(), entry);
    popupFault_ = MenuEntryFault(found, entry);
    return popupFault_.isEmpty() ? found : nullptr;
}

}  // namespace ssq
