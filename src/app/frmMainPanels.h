// The panels that the menu opens: one instance of each modeless one at a time.
#pragma once

#include <QPointer>
#include <QString>
#include <map>
#include <memory>

#include "draws/NumberSource.h"
#include "ui/qt/PanelContext.h"

class QDialog;
class QWidget;

namespace ssq {

class Panel;

class PanelRegistry {
  public:
    // The windows of all panels belong to `owner`, so that it does not hide them.
    PanelRegistry(const PanelContext& context, QWidget& owner);

    // What the panels are given.
    const PanelContext& context() const { return context_; }

    // Whether this build has the panel.
    static bool Knows(const QString& name);

    // Brings up the open panel of that name, or makes it.
    void Open(const QString& name);

    // Shows a modal panel and returns its result when it is closed.
    int RunDialog(const QString& name);

    // Brings up the number filter with these conditions behind those of its plan; nothing for an
    // empty text.
    void AddToPlan(const std::string& conditions);

    // The plan that stands in the open number filter; empty when it is not open.
    std::string StandingPlan() const;

    // Brings up the blind test with these texts in its controls.
    void OpenBlindTest(const ControlTexts& settings);

    // Tells the open panels that there are new draws.
    void TakeNewDraws();

  private:
    NumbersAtHand atHand_;
    PanelContext context_;
    QWidget& owner_;
    std::map<QString, QPointer<Panel>> open_;
};

}  // namespace ssq
