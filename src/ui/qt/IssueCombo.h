// The combos that choose a draw: every issue, newest first, to pick from or to type.
#pragma once

#include <QComboBox>
#include <initializer_list>

#include "draws/public_fun.h"
#include "ui/qt/PanelContext.h"

namespace ssq {

class IssueCombo final : public QComboBox {
  public:
    explicit IssueCombo(QWidget* parent = nullptr);

    // Replaces the list; the text becomes empty.
    void Fill(const QStringList& newestFirst);

    // What stands in the combo, chosen or typed, without blanks around it.
    std::string issue() const;

    // Takes the list entry at the position, counted from 0; an empty text where there is none.
    void TakeEntry(int position);

    // The entry `steps` below the one whose text stands in the combo; empty where the list ends
    // before it, or the text is not in the list.
    QString EntryBelow(int steps) const;
};

// Where a range's start combo opens: an entry of its list counted from 0 (the newest issue), or
// as far back as banker learning looks.
inline constexpr int kStartAtLearning = -1;
inline constexpr int kStartWide = 49;
inline constexpr int kStartSixtyDraws = 59;

// Fills the range: the end is the newest issue, the start the entry told. On failure the error text
// is shown and the combos stay as they are.
void FillIssueCombos(const PanelContext& context, IssueCombo& start, IssueCombo& end,
                     int startEntry);

// The same with one combo, which takes the newest issue.
void FillIssueCombo(const PanelContext& context, IssueCombo& combo);

// Replaces the lists by the issues on file now; what stands in the combos stays.
void RefillIssueCombos(const PanelContext& context, std::initializer_list<IssueCombo*> combos);

inline PeriodRange RangeOf(const IssueCombo& start, const IssueCombo& end) {
    return {start.issue(), end.issue()};
}

}  // namespace ssq
