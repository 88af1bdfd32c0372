#include "ui/qt/Panel.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QPushButton>
#include <algorithm>

#include "draws/NumberSource.h"
#include "draws/Public_var.h"
#include "ui/Host.h"
#include "ui/qt/ProgressStrip.h"
#include "ui/qt/keys.h"
#include "ui/qt/placing.h"

namespace ssq {

namespace {

class StripWatcher final : public RunWatcher {
  public:
    StripWatcher(ProgressStrip* strip, const int& newest, int number)
        : strip_(strip), newest_(newest), number_(number) {}

    void ShowProgress(const std::string& text) override {
        if (!strip_) return;
        if (strip_->isHidden()) strip_->Begin();
        strip_->Tell(text);
    }
    bool IsWanted() const override { return number_ == newest_; }

  private:
    ProgressStrip* strip_;
    const int& newest_;
    int number_;
};

// Only windows of the kind of a dialog stay above their owner on every window system. They have the
// buttons of an ordinary one but for that to minimise, which would take the owner along.
constexpr Qt::WindowFlags kOwnedWindow = Qt::Dialog | Qt::WindowTitleHint |
                                         Qt::WindowSystemMenuHint | Qt::WindowMaximizeButtonHint |
                                         Qt::WindowCloseButtonHint;

}  // namespace

bool PanelRuns::Work(const std::function<bool(Run&)>& work, Run& run) {
    struct Count {
        explicit Count(int& count) : count_(count) { ++count_; }
        ~Count() { --count_; }
        int& count_;
    };
    const Count count(underWay_);
    return work(run);
}

bool PanelRuns::Perform(const Controls& controls, const std::function<bool(Run&)>& work) {
    const int number = ++newest_;
    StripWatcher watcher(controls.strip, newest_, number);
    Run run(host_, &watcher);
    const QString caption = controls.button ? controls.button->text() : QString();
    if (controls.strip) controls.strip->End();
    if (controls.button) {
        controls.button->setEnabled(false);
        if (!controls.busyCaption.isEmpty()) controls.button->setText(controls.busyCaption);
    }
    const bool succeeded = Work(work, run);
    if (!run.goesOn()) return false;
    run.ShowLast();
    if (!succeeded && controls.staysAfterFailure) return false;
    if (controls.strip) controls.strip->End();
    if (controls.button) {
        controls.button->setText(caption);
        controls.button->setEnabled(true);
    }
    return succeeded;
}

Panel::Panel(const PanelContext& context, QWidget* parent, const Form& form)
    : QWidget(parent, kOwnedWindow), context_(context), runs_(context.session.host) {
    setObjectName(QString::fromUtf8(form.name));
    setWindowTitle(QString::fromUtf8(form.title));
    FitOrMaximize(*this, {form.width, form.height});
}

bool Panel::Perform(const PanelRuns::Controls& controls, const std::function<bool(Run&)>& work) {
    const bool succeeded = runs_.Perform(controls, work);
    if (closed_ && !runs_.IsAnyUnderWay()) deleteLater();
    return succeeded && !closed_;
}

void Panel::SetMainButton(QPushButton* button) {
    mainButton_ = button;
    button->setDefault(true);
}

void Panel::SetMainButtonOf(QWidget* inputs, QPushButton* button) {
    partButtons_.emplace_back(inputs, button);
}

QPushButton* Panel::MainButtonNow() const {
    const QWidget* focus = focusWidget();
    const auto part = std::ranges::find_if(partButtons_, [focus](const auto& inputsAndButton) {
        const QWidget* inputs = inputsAndButton.first;
        return focus && (inputs == focus || inputs->isAncestorOf(focus));
    });
    return part == partButtons_.end() ? mainButton_ : part->second;
}

void Panel::NameNumbers(std::vector<NumberSource> sources) {
    if (context_.atHand) context_.atHand->Show(objectName().toStdString(), std::move(sources));
}

void Panel::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape || event->matches(QKeySequence::Close)) {
        close();
    } else if (!TakeKey(context_, *this, MainButtonNow(), *event)) {
        QWidget::keyPressEvent(event);
    }
}

void Panel::closeEvent(QCloseEvent* event) {
    event->accept();
    if (closed_) return;
    closed_ = true;
    if (context_.atHand) context_.atHand->Forget(objectName().toStdString());
    runs_.EndAll();
    if (!runs_.IsAnyUnderWay()) deleteLater();
}

}  // namespace ssq
