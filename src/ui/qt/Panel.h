// What every modeless panel is: a window of its own that ends when it is closed, with its runs.
#pragma once

#include <QString>
#include <QWidget>
#include <functional>
#include <utility>
#include <vector>

#include "ui/Run.h"
#include "ui/qt/PanelContext.h"

class QPushButton;

namespace ssq {

class ProgressStrip;
struct NumberSource;

// The runs of one panel. The newest wins: an older one still under way ends quietly at its next
// step.
class PanelRuns {
  public:
    explicit PanelRuns(Host& host) : host_(host) {}

    // What a run changes on its panel while it lasts.
    struct Controls {
        ProgressStrip* strip = nullptr;   // shown from the run's first progress on
        QPushButton* button = nullptr;    // disabled
        QString busyCaption = QString();  // of the button; empty leaves its own
        // A failed run leaves the button as it is, until the panel is opened anew.
        bool staysAfterFailure = false;
    };

    // Performs the work, which answers whether it succeeded. True when it did and was neither
    // overtaken by a newer run nor ended by the closing of its panel or of the program.
    bool Perform(const Controls& controls, const std::function<bool(Run&)>& work);

    // Ends the runs under way at their next step.
    void EndAll() { ++newest_; }
    bool IsAnyUnderWay() const { return underWay_ > 0; }

  private:
    bool Work(const std::function<bool(Run&)>& work, Run& run);

    Host& host_;
    int newest_ = 0;
    int underWay_ = 0;
};

class Panel : public QWidget {
  public:
    // The panel's name, title and first size in pixels.
    struct Form {
        const char* name;
        const char* title;
        int width;
        int height;
    };

    Panel(const PanelContext& context, QWidget* parent, const Form& form);

    // New draws are on file: lists of issues learn them, what is chosen stays.
    virtual void TakeNewDraws() {}

    // Closed for good: deleted as soon as its last run has ended.
    bool isClosed() const { return closed_; }

  protected:
    Session& session() const { return context_.session; }
    const PanelContext& context() const { return context_; }

    // The run of a button or a menu entry; see PanelRuns::Perform.
    bool Perform(const PanelRuns::Controls& controls, const std::function<bool(Run&)>& work);

    // What the panel's result names for the next draw, at hand until the panel closes.
    void NameNumbers(std::vector<NumberSource> sources);

    // F5 and Enter in an input press it, and it stands out.
    void SetMainButton(QPushButton* button);
    // Takes the main button's place while the focus is in `inputs`, a control or a group.
    void SetMainButtonOf(QWidget* inputs, QPushButton* button);
    QPushButton* mainButton() const { return mainButton_; }

    // Esc and Ctrl+W close the panel.
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    QPushButton* MainButtonNow() const;

    PanelContext context_;
    PanelRuns runs_;
    QPushButton* mainButton_ = nullptr;
    std::vector<std::pair<QWidget*, QPushButton*>> partButtons_;
    bool closed_ = false;
};

}  // namespace ssq
