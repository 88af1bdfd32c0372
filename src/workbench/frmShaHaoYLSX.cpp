#include "workbench/frmShaHaoYLSX.h"

#include <QBoxLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QMenu>

#include "base/numbers.h"
#include "draws/Public_var.h"
#include "ui/qt/Desktop.h"
#include "ui/qt/GridExport.h"
#include "ui/qt/GridView.h"
#include "ui/qt/form.h"
#include "workbench/NumberCount.h"
#include "workbench/frmShaHao.h"

namespace ssq {

namespace {

constexpr const char* kResultsCaption = "公式筛选结果";

}  // namespace

frmShaHaoYLSX::frmShaHaoYLSX(const PanelContext& context, const frmShaHao& workbench,
                             QWidget* parent)
    : QWidget(parent), context_(context), workbench_(workbench) {
    auto* column = SetUpPanel(*this, "frmShaHaoYLSX", QStringLiteral("筛选条件"), 1100, 640);
    operations_ = AddGroup(column, "Frame1", QStringLiteral("操作"));
    auto* beyond = AddRow(operations_);
    AddButton(beyond, "Command1", QStringLiteral("当前>最大遗漏"),
              [this] { Filter(kGapFilter, std::nullopt); });
    AddButton(beyond, "Command5", QStringLiteral("当前>最大连出"),
              [this] { Filter(kRunFilter, std::nullopt); });
    AddButton(beyond, "Command4", QStringLiteral("统计号码次数"), [this] { Count(); });
    AddButton(beyond, "Command2", QStringLiteral("导出结果"),
              [this] { SaveGridAsExcel(context_, *vs1_); });
    auto* reaching = AddRow(operations_);
    AddButton(reaching, "Command3", QStringLiteral("当前遗漏次数"),
              [this] { FilterReaching(kGapFilter, *txtYLCS_); });
    txtYLCS_ = AddTextBox(reaching, "txtYLCS", QStringLiteral(">="));
    AddButton(reaching, "Command6", QStringLiteral("当前连出"),
              [this] { FilterReaching(kRunFilter, *txtLC_); });
    txtLC_ = AddTextBox(reaching, "txtLC", QStringLiteral(">="));
    AddButton(reaching, "Command7", QStringLiteral("出现概率"),
              [this] { FilterReaching(kRateFilter, *txtGL_); });
    txtGL_ = AddTextBox(reaching, "txtGL", QStringLiteral(">="));
    txtGL_->setText(QStringLiteral("99.5"));

    results_ = AddGroup(column, "Frame2", QString::fromUtf8(kResultsCaption));
    vs1_ = AddGrid(results_, "vs1");
    vs1_->onPopup = [this](const QPoint& place) { RaisePopup(place); };
}

void frmShaHaoYLSX::Open() {
    const std::string endIssue = workbench_.endIssue();
    if (endIssue != endIssue_) {
        vs1_->SetGrid({});
        results_->setTitle(QString::fromUtf8(kResultsCaption));
    }
    endIssue_ = endIssue;
    operations_->setTitle(Qs("截至期号：" + endIssue_));
    show();
    raise();
    activateWindow();
}

void frmShaHaoYLSX::Filter(const FormulaFilter& filter, FormulaThreshold threshold) {
    FormulaFilterResult result;
    if (!FilterForOmissionScreen(context_.session, workbench_.statistics(), endIssue_,
                                 workbench_.conditionText(), filter, threshold, result)) {
        return;
    }
    operations_->setTitle(Qs(result.issueCaption));
    vs1_->SetGrid(std::move(result.grid));
    results_->setTitle(Qs(result.resultCaption));
}

void frmShaHaoYLSX::FilterReaching(const FormulaFilter& filter, const QLineEdit& box) {
    Filter(filter, Val(box.text().toStdString()));
}

void frmShaHaoYLSX::Count() {
    NumberCountResult result;
    const bool counted = CountNumbers(context_.session, vs1_->grid(), endIssue_, result);
    if (!result.issueCaption.empty()) operations_->setTitle(Qs(result.issueCaption));
    if (counted) vs1_->SetGrid(std::move(result.grid));
}

void frmShaHaoYLSX::RaisePopup(const QPoint& place) {
    QMenu menu(QStringLiteral("复制"));
    menu.setObjectName(QStringLiteral("f_mz"));
    AddEntry(menu, "m_ylsx_fz", QStringLiteral("复制号码"), [this] { CopySelection(*vs1_); });
    AddEntry(menu, "m_fuzito500", QStringLiteral("复制成条件格式"),
             [this] { CopySelectionAsCondition(*vs1_); });
    context_.desktop.RaisePopup(menu, place);
}

}  // namespace ssq
