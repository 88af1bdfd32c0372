#include "ui/qt/IssueCombo.h"

#include <QCompleter>
#include <QLineEdit>
#include <QListView>
#include <QStringListModel>
#include <algorithm>

#include "draws/BankerSettings.h"
#include "draws/Public_var.h"
#include "ui/qt/Qs.h"

namespace ssq {

namespace {

constexpr int kVisibleEntries = 20;
constexpr int kLongestIssue = 32;  // characters
constexpr int kIssueDigits = 7;

// Proposes issues until one is typed whole, so that Enter then belongs to the panel, not to the
// list.
class IssueCompleter final : public QCompleter {
  public:
    using QCompleter::QCompleter;

    QStringList splitPath(const QString& typed) const override {
        const bool isWhole = typed.trimmed().size() >= kIssueDigits;
        return {isWhole ? QStringLiteral("-") : typed};
    }
};

bool ReadList(const PanelContext& context, QStringList& newestFirst) {
    std::vector<std::string> issues;
    if (!ReadIssues(context.session, issues)) return false;
    newestFirst.reserve(static_cast<int>(issues.size()));
    for (const std::string& issue : issues) newestFirst.append(Qs(issue));
    return true;
}

}  // namespace

IssueCombo::IssueCombo(QWidget* parent) : QComboBox(parent) {
    setEditable(true);
    setInsertPolicy(NoInsert);
    setMaxVisibleItems(kVisibleEntries);
    setModel(new QStringListModel(this));
    // All entries are alike, so the list need not measure thousands of them to open.
    auto* list = new QListView(this);
    list->setUniformItemSizes(true);
    setView(list);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(9);
    lineEdit()->setMaxLength(kLongestIssue);

    auto* completer = new IssueCompleter(model(), this);
    completer->setCompletionMode(QCompleter::PopupCompletion);
    completer->setFilterMode(Qt::MatchContains);
    completer->setMaxVisibleItems(kVisibleEntries);
    if (auto* popup = qobject_cast<QListView*>(completer->popup())) {
        popup->setUniformItemSizes(true);
    }
    setCompleter(completer);
}

void IssueCombo::Fill(const QStringList& newestFirst) {
    static_cast<QStringListModel*>(model())->setStringList(newestFirst);
    TakeEntry(-1);
}

std::string IssueCombo::issue() const {
    return currentText().trimmed().toStdString();
}

void IssueCombo::TakeEntry(int position) {
    const bool exists = position >= 0 && position < count();
    setCurrentIndex(exists ? position : -1);
    if (!exists) setEditText({});
}

QString IssueCombo::EntryBelow(int steps) const {
    const int position = findText(currentText().trimmed());
    // itemText answers an empty text outside the list; the sum must not overflow on the way.
    return position < 0 || steps > count() ? QString() : itemText(position + steps);
}

void FillIssueCombos(const PanelContext& context, IssueCombo& start, IssueCombo& end,
                     int startEntry) {
    QStringList issues;
    if (!ReadList(context, issues)) return;
    start.Fill(issues);
    end.Fill(issues);
    end.TakeEntry(0);
    const int periods = startEntry == kStartAtLearning
                            ? GetLearnPeriods(context.session).value_or(0)
                            : startEntry + 1;
    start.TakeEntry(std::max(periods, 0) - 1);
}

void FillIssueCombo(const PanelContext& context, IssueCombo& combo) {
    QStringList issues;
    if (!ReadList(context, issues)) return;
    combo.Fill(issues);
    combo.TakeEntry(0);
}

void RefillIssueCombos(const PanelContext& context, std::initializer_list<IssueCombo*> combos) {
    QStringList issues;
    if (!ReadList(context, issues)) return;
    for (IssueCombo* combo : combos) {
        const QString text = combo->currentText();
        combo->Fill(issues);
        const int entry = combo->findText(text);
        if (entry >= 0) {
            combo->TakeEntry(entry);
        } else {
            combo->setEditText(text);
        }
    }
}

}  // namespace ssq
