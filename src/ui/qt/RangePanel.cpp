#include "ui/qt/RangePanel.h"

#include <QBoxLayout>
#include <QGroupBox>
#include <QPushButton>
#include <QScrollBar>
#include <utility>

#include "draws/Public_var.h"
#include "ui/qt/ChanceRemark.h"
#include "ui/qt/GridView.h"
#include "ui/qt/IssueCombo.h"
#include "ui/qt/ProgressStrip.h"
#include "ui/qt/Qs.h"
#include "ui/qt/form.h"

namespace ssq {

RangePanel::RangePanel(const PanelContext& context, QWidget* parent, const RangeForm& form)
    : Panel(context, parent, form.form), column_(new QVBoxLayout(this)) {
    inputs_ =
        form.inputsName
            ? AddRow(AddGroup(column_, form.inputsName, QString::fromUtf8(form.inputsCaption)))
            : AddRow(column_);
    start_ = AddIssueCombo(inputs_, "cboSdate", QStringLiteral("开始期号:"), "Label1");
    end_ = AddIssueCombo(inputs_, "cboEdate", QStringLiteral("结束期号:"), "Label2");
    AddPeriodMenu(inputs_, *start_, *end_, form.drawsBefore);
    FillIssueCombos(context, *start_, *end_, form.startEntry);
}

void RangePanel::TakeNewDraws() {
    RefillIssueCombos(context(), {start_, end_});
}

PeriodRange RangePanel::range() const {
    return RangeOf(*start_, *end_);
}

QPushButton* RangePanel::AddRunButton(const RunButton& button, std::function<bool(Run&)> work) {
    auto* control = AddButton(inputs_, button.name, QString::fromUtf8(button.caption), {});
    connect(control, &QPushButton::clicked, this, [this, control, button, work = std::move(work)] {
        PanelRuns::Controls controls;
        controls.strip = strip_;
        controls.staysAfterFailure = button.staysAfterFailure;
        if (button.busyCaption) controls.busyCaption = QString::fromUtf8(button.busyCaption);
        if (button.isDisabledInRun) controls.button = control;
        Perform(controls, [this, &work](Run& run) {
            const Run* const outer = std::exchange(run_, &run);
            const bool succeeded = work(run);
            run_ = outer;
            return succeeded;
        });
    });
    if (!mainButton()) SetMainButton(control);
    return control;
}

ProgressStrip* RangePanel::AddProgress(const char* busyText) {
    strip_ = new ProgressStrip(QString::fromUtf8(busyText));
    column_->addWidget(strip_);
    return strip_;
}

GridView* RangePanel::AddResults(const char* groupName, const char* caption) {
    resultsGroup_ = AddGroup(column_, groupName, QString::fromUtf8(caption));
    vs1_ = AddGrid(context(), resultsGroup_, "vs1");
    if (QPushButton* button = mainButton()) {
        vs1_->SetEmptyHint(QStringLiteral("还没有结果。"), QStringLiteral("点此") + button->text(),
                           [button] { button->click(); });
    }
    return vs1_;
}

void RangePanel::AddRemark(std::function<ControlTexts()> blindTest) {
    blindTest_ = std::move(blindTest);
    resultsGroup_->layout()->addWidget(remark_ = new ChanceRemark(context()));
}

void RangePanel::ClearResults() {
    vs1_->SetGrid({});
    if (remark_) remark_->Show({});
}

void RangePanel::SetResultsCaption(const std::string& caption) {
    resultsGroup_->setTitle(Qs(caption));
}

QString RangePanel::resultsCaption() const {
    return resultsGroup_->title();
}

bool RangePanel::Show(std::optional<GridReport> report) {
    if (!report || isClosed() || (run_ && !run_->goesOn())) return false;
    if (!report->caption.empty()) SetResultsCaption(report->caption);
    vs1_->SetGrid(std::move(report->grid));
    if (remark_) remark_->Show(report->remark, blindTest_ ? blindTest_() : ControlTexts());
    vs1_->verticalScrollBar()->setValue(vs1_->verticalScrollBar()->maximum());
    return true;
}

}  // namespace ssq
