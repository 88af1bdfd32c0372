#include "kill/frmSHAMA.h"

#include <QBoxLayout>
#include <QGroupBox>
#include <QPushButton>
#include <cmath>

#include "draws/Public_var.h"
#include "kill/KillLearning.h"
#include "kill/KillRecommend.h"
#include "kill/KillSettings.h"
#include "kill/frmSHAMAxuexi.h"
#include "kill/frmSHAMAxxjl.h"
#include "ui/ClipText.h"
#include "ui/qt/GridExport.h"
#include "ui/qt/GridView.h"
#include "ui/qt/IssueCombo.h"
#include "ui/qt/ProgressStrip.h"
#include "ui/qt/form.h"

namespace ssq {

namespace {

constexpr int kPeriodWithoutSettings = 60;

// Six columns belong to a group, behind two for the draw and before two for the verdict. Counted
// from 0.
int LastKillGroup(const ResultGrid& grid) {
    return static_cast<int>(std::lround((grid.cols() - 4) / 6.0 - 1));
}

}  // namespace

frmSHAMA::frmSHAMA(const PanelContext& context, QWidget* parent)
    : Panel(context, parent, {"frmSHAMA", "杀码推荐", 1120, 680}) {
    auto* column = new QVBoxLayout(this);
    auto* query = AddRow(column);
    start_ = AddIssueCombo(query, "cboSdate", QStringLiteral("开始期号:"));
    end_ = AddIssueCombo(query, "cboEdate", QStringLiteral("结束期号:"));
    AddButton(query, "Command1", QStringLiteral("杀号推荐"), [this] { Recommend(); });
    learnButton_ = AddButton(query, "Command2", QStringLiteral("智能学习"), [this] { Learn(); });
    AddButton(query, "Command3", QStringLiteral("历史记录"), [this] { ShowRecords(); });

    progress_ = new ProgressStrip(QStringLiteral("正在学习中......."));
    column->addWidget(progress_);

    resultGroup_ =
        AddGroup(column, "Frame2", QStringLiteral("杀码统计结果(注意：概率降低请重新学习)"));
    vs1_ = AddGrid(resultGroup_, "vs1");
    SetPopup(context, *vs1_, "shama_bgfz", "杀码表格复制",
             {{"m_smfuzi", "复制选中的号码", [this] { CopySelection(*vs1_); }},
              {"shama_tiaojiangeshi", "复制成条件格式",
               [this] { CopyKillConditions(*vs1_, LastKillGroup(vs1_->grid())); }},
              {"shama_xuanhao", "加入选号台", [this] { AddToPlan(); }}});
    Load();
}

void frmSHAMA::AddToPlan() {
    const ResultGrid& grid = vs1_->grid();
    if (context().addToPlan) context().addToPlan(KillConditions(grid, LastKillGroup(grid)));
}

void frmSHAMA::Load() {
    FillIssueCombos(context(), *start_, *end_, kStartAtLearning);
    TakePeriod(kPeriodWithoutSettings);
    if (const auto settings = ReadKillSettingsOrTell(session())) TakePeriod(settings->xxqs);
}

// The start becomes the oldest of the `periods` draws that end with the end issue.
void frmSHAMA::TakePeriod(int periods) {
    start_->TakeEntry(start_->findText(end_->EntryBelow(periods - 1)));
}

void frmSHAMA::CallCommand1(const std::string& endIssue, int periods) {
    end_->TakeEntry(end_->findText(Qs(endIssue)));
    TakePeriod(periods);
    Recommend();
}

void frmSHAMA::Recommend() {
    KillRecommendation result;
    if (!KillRecommend(session(), RangeOf(*start_, *end_), result)) return;
    resultGroup_->setTitle(Qs(result.caption));
    vs1_->SetGrid(std::move(result.grid));
    vs1_->scrollToBottom();  // the forecast stands below the draws
}

void frmSHAMA::Learn() {
    if (frmSHAMAxuexi(context(), this).exec() != QDialog::Accepted) return;
    const std::string endIssue = end_->issue();
    if (!CheckPeriod(session(), {endIssue, endIssue})) return;

    learning_ = true;
    progress_->Begin();
    learnButton_->setEnabled(false);
    const KillLearnView view{[this](const std::string& text) { progress_->Tell(text); },
                             [this](const std::string& percent) { progress_->Set(percent); },
                             [this] { Release(); }};
    const KillLearnResult result = KillLearn(session(), endIssue, view);
    learning_ = false;
    if (session().host.stopping() || result.outcome == KillLearnOutcome::kFailed) return;
    if (result.outcome == KillLearnOutcome::kLearned) TakePeriod(result.xxqs);
    Recommend();
}

void frmSHAMA::Release() {
    progress_->End();
    learnButton_->setEnabled(true);
}

void frmSHAMA::ShowRecords() {
    frmSHAMAxxjl(
        context(),
        [this](const std::string& endIssue, int periods) { CallCommand1(endIssue, periods); }, this)
        .exec();
}

}  // namespace ssq
