#include "workbench/frmShaHaoYLSX.h"

#include <QBoxLayout>
#include <QGroupBox>
#include <QLineEdit>

#include "base/numbers.h"
#include "draws/Public_var.h"
#include "ui/qt/GridExport.h"
#include "ui/qt/GridView.h"
#include "ui/qt/Qs.h"
#include "ui/qt/form.h"
#include "ui/qt/placing.h"
#include "workbench/NumberCount.h"
#include "workbench/frmShaHao.h"

namespace ssq {

namespace {

constexpr const char* kResultsCaption = "公式筛选结果";

}  // namespace

frmShaHaoYLSX::frmShaHaoYLSX(const PanelContext& context, frmShaHao& workbench)
    : Panel(context, &workbench, {"frmShaHaoYLSX", "筛选条件", 1100, 640}), workbench_(workbench) {
    auto* column = new QVBoxLayout(this);
    operations_ = AddGroup(column, "Frame1", QStringLiteral("操作"));
    auto* beyond = AddRow(operations_);
    SetMainButton(AddButton(beyond, "Command1", QStringLiteral("当前>最大遗漏"),
                            [this] { Filter(kGapFilter, std::nullopt); }));
    AddButton(beyond, "Command5", QStringLiteral("当前>最大连出"),
              [this] { Filter(kRunFilter, std::nullopt); });
    AddButton(beyond, "Command4", QStringLiteral("统计号码次数"), [this] { Count(); });
    AddButton(beyond, "Command2", QStringLiteral("导出结果"),
              [this] { SaveGridAsExcel(this->context(), *vs1_); });
    auto* reaching = AddRow(operations_);
    auto* gapButton = AddButton(reaching, "Command3", QStringLiteral("当前遗漏次数"),
                                [this] { FilterReaching(kGapFilter, *txtYLCS_); });
    txtYLCS_ = AddTextBox(reaching, "txtYLCS", QStringLiteral(">="));
    SetMainButtonOf(txtYLCS_, gapButton);
    auto* runButton = AddButton(reaching, "Command6", QStringLiteral("当前连出"),
                                [this] { FilterReaching(kRunFilter, *txtLC_); });
    txtLC_ = AddTextBox(reaching, "txtLC", QStringLiteral(">="));
    SetMainButtonOf(txtLC_, runButton);
    auto* rateButton = AddButton(reaching, "Command7", QStringLiteral("出现概率"),
                                 [this] { FilterReaching(kRateFilter, *txtGL_); });
    txtGL_ = AddTextBox(reaching, "txtGL", QStringLiteral(">="));
    SetMainButtonOf(txtGL_, rateButton);
    txtGL_->setText(QStringLiteral("99.5"));

    results_ = AddGroup(column, "Frame2", QString::fromUtf8(kResultsCaption));
    vs1_ = AddGrid(context, results_, "vs1");
    vs1_->SetEmptyHint(QStringLiteral("没有筛选出的公式。"),
                       QStringLiteral("点此筛选当前遗漏大于最大遗漏的"),
                       [this] { Filter(kGapFilter, std::nullopt); });
    SetPopup(
        context, *vs1_, "f_mz", "复制",
        {{"m_ylsx_fz", "复制号码", [this] { CopySelection(*vs1_); }},
         {"m_fuzito500", "复制成条件格式", [this] { CopySelectionAsCondition(*vs1_); }},
         {"ylsx_xuanhao", "加入选号台", [this] { AddSelectionToPlan(this->context(), *vs1_); }}});
}

void frmShaHaoYLSX::Open() {
    const std::string endIssue = workbench_.endIssue();
    if (endIssue != endIssue_) {
        vs1_->SetGrid({});
        results_->setTitle(QString::fromUtf8(kResultsCaption));
    }
    endIssue_ = endIssue;
    operations_->setTitle(Qs("截至期号：" + endIssue_));
    BringUp(*this);
}

void frmShaHaoYLSX::Filter(const FormulaFilter& filter, FormulaThreshold threshold) {
    auto report = FilterForOmissionScreen(session(), workbench_.statistics(), endIssue_,
                                          workbench_.conditionText(), filter, threshold);
    if (!report) return;
    operations_->setTitle(Qs(report->issueCaption));
    vs1_->SetGrid(std::move(report->grid));
    results_->setTitle(Qs(report->caption));
}

void frmShaHaoYLSX::FilterReaching(const FormulaFilter& filter, const QLineEdit& box) {
    Filter(filter, Val(box.text().toStdString()));
}

void frmShaHaoYLSX::Count() {
    if (!CheckIsFiltered(session(), vs1_->grid())) return;
    operations_->setTitle(Qs(CountCaption(endIssue_)));
    if (auto grid = BuildNumberCount(session(), vs1_->grid(), endIssue_)) {
        vs1_->SetGrid(std::move(*grid));
    }
}

}  // namespace ssq
