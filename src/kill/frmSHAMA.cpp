#include "kill/frmSHAMA.h"

#include <QBoxLayout>
#include <QPushButton>
#include <algorithm>

#include "base/numbers.h"
#include "draws/Draw.h"
#include "draws/Public_var.h"
#include "kill/KillLearning.h"
#include "kill/KillRecommend.h"
#include "kill/KillSettings.h"
#include "kill/frmSHAMAxuexi.h"
#include "kill/frmSHAMAxxjl.h"
#include "ui/qt/GridExport.h"
#include "ui/qt/GridView.h"
#include "ui/qt/Qs.h"
#include "ui/qt/form.h"

namespace ssq {

namespace {

constexpr int kStartWithoutSettings = 59;  // entry of the start's list, counted from 0

}  // namespace

frmSHAMA::frmSHAMA(const PanelContext& context, QWidget* parent)
    : RangePanel(context, parent,
                 {.form = {"frmSHAMA", "杀码推荐", 1120, 680},
                  .startEntry = kStartWithoutSettings,
                  .inputsName = nullptr,
                  .drawsBefore = kFormulaDraws}) {
    // No run of the panel: it goes on beside a learning run and does not end it.
    SetMainButton(
        AddButton(inputs(), "Command1", QStringLiteral("杀号推荐"), [this] { Recommend(); }));
    learnButton_ = AddButton(inputs(), "Command2", QStringLiteral("智能学习"), [this] { Learn(); });
    AddButton(inputs(), "Command3", QStringLiteral("历史记录"), [this] { ShowRecords(); });
    progress_ = AddProgress("正在学习中.......");
    GridView* vs1 = AddResults("Frame2", "杀码统计结果(注意：概率降低请重新学习)");
    // A recommendation needs what learning finds, and follows it.
    vs1->SetEmptyHint(QStringLiteral("还没有结果。"), QStringLiteral("点此智能学习"),
                      [this] { learnButton_->click(); });
    SetPopup(context, *vs1, "shama_bgfz", "杀码表格复制",
             {{"m_smfuzi", "复制选中的号码", [vs1] { CopySelection(*vs1); }},
              {"shama_tiaojiangeshi", "复制成条件格式",
               [vs1] {
                   PutOnClipboard(KillConditions(vs1->grid()));
                   vs1->Tell(QStringLiteral("已复制选中行的条件"));
               }},
              {"shama_xuanhao", "加入选号台", [this, vs1] {
                   if (this->context().addToPlan) {
                       this->context().addToPlan(KillConditions(vs1->grid()));
                   }
               }}});
    AddRemark([this] {
        return ControlTexts{
            {"cboFangFa", "杀码学习"},
            {"txtXXQS", std::to_string(shown_.xxqs)},
            {"cboSmGs", "杀" + std::to_string(kRedsInDraw * (shown_.dmgs + 1)) + "码"},
            {"cboycGs", std::to_string(shown_.rc)},
            {"txtGL", NumberText(shown_.setRate)}};
    });
    if (const auto settings = ReadKillSettingsOrTell(session())) TakePeriod(settings->xxqs);
}

// The start becomes the oldest of the `periods` draws that end with the end issue.
void frmSHAMA::TakePeriod(int periods) {
    start().TakeEntry(start().findText(end().EntryBelow(std::max(periods, 0) - 1)));
}

void frmSHAMA::CallCommand1(const std::string& endIssue, int periods) {
    end().TakeEntry(end().findText(Qs(endIssue)));
    TakePeriod(periods);
    Recommend();
}

void frmSHAMA::Recommend() {
    auto report = KillRecommend(session(), range());
    if (report) shown_ = report->settings;
    Show(std::move(report));
}

void frmSHAMA::Learn() {
    if (frmSHAMAxuexi(context(), this).exec() != QDialog::Accepted) return;
    const std::string endIssue = end().issue();
    KillLearnResult learned;
    const PanelRuns::Controls controls{
        .strip = progress_, .button = learnButton_, .staysAfterFailure = true};
    const bool isFree = Perform(controls, [&](Run& run) {
        learned = KillLearn(session(), endIssue, run);
        return learned.outcome != KillLearnOutcome::kTooLittle;
    });
    if (!isFree || learned.outcome != KillLearnOutcome::kSearched) return;
    const KillStoreOutcome stored = StoreKillSet(session(), endIssue, learned);
    if (stored == KillStoreOutcome::kFailed) return;
    if (stored == KillStoreOutcome::kStored) TakePeriod(learned.settings.xxqs);
    Recommend();
}

void frmSHAMA::ShowRecords() {
    frmSHAMAxxjl records(
        context(),
        [this](const std::string& endIssue, int periods) { CallCommand1(endIssue, periods); },
        this);
    if (records.exec() == frmSHAMAxxjl::kWantsLearning) learnButton_->click();
}

}  // namespace ssq
