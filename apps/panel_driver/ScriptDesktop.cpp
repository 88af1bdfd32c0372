#include "ScriptDesktop.h"

#include <QAction>
#include <QMenu>
#include <stdexcept>

namespace ssq {

QAction* FindEntry(const QList<QAction*>& entries, const QString& name) {
    for (QAction* entry : entries) {
        const QMenu* submenu = entry->menu();
        if (entry->objectName() == name || entry->text() == name) return entry;
        if (!submenu) continue;
        if (submenu->objectName() == name) return entry;
        if (QAction* found = FindEntry(submenu->actions(), name)) return found;
    }
    return nullptr;
}

QAction& UsableEntry(const QList<QAction*>& entries, const QString& name) {
    QAction* entry = FindEntry(entries, name);
    const char* fault = nullptr;
    if (!entry)
        fault = "is no menu entry";
    else if (entry->menu())
        fault = "is a menu, not an entry";
    else if (!entry->isVisible())
        fault = "is hidden";
    else if (!entry->isEnabled())
        fault = "is disabled";
    if (fault) throw std::runtime_error("'" + name.toStdString() + "' " + fault);
    return *entry;
}

void ScriptDesktop::ChooseInPopup(const QString& entry) {
    wishedEntry_ = entry;
    popupFault_ = "no popup was raised";
}

std::string ScriptDesktop::EndPopup() {
    wishedEntry_.clear();
    return std::exchange(popupFault_, {});
}

void ScriptDesktop::ShowBox(const QString& title, const QString& text, const QString& note) {
    Json box{{"title", title}, {"text", text}};
    if (!note.isEmpty()) box["note"] = note;
    messages_.push_back(std::move(box));
}

bool ScriptDesktop::Confirm(const QString& title, const QString& text) {
    ShowBox(title, text, {});
    if (questionAnswers_.empty()) return true;
    const bool answer = questionAnswers_.front();
    questionAnswers_.pop_front();
    return answer;
}

QString ScriptDesktop::TakeFileAnswer() {
    if (fileAnswers_.empty()) return {};
    QString answer = fileAnswers_.front();
    fileAnswers_.pop_front();
    return answer;
}

void ScriptDesktop::Open(const QString& urlOrFile) {
    opened_.push_back(urlOrFile);
}

void ScriptDesktop::StartProgram(const QString& file, const QString& arguments) {
    opened_.push_back(QString(file + u' ' + arguments));
}

// The fault is kept for the end of the command: nothing may be thrown through the event loop.
void ScriptDesktop::RaisePopup(QMenu& menu, const QPoint&) {
    Q_EMIT menu.aboutToShow();
    QAction* wished = nullptr;
    if (!wishedEntry_.isEmpty()) {
        try {
            wished = &UsableEntry(menu.actions(), std::exchange(wishedEntry_, {}));
            popupFault_.clear();
        } catch (const std::exception& fault) {
            popupFault_ = fault.what();
        }
    }
    Q_EMIT menu.aboutToHide();
    if (wished) wished->trigger();
}

}  // namespace ssq
