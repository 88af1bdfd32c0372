#include "workbench/frmShaHao.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>

#include "draws/Public_var.h"
#include "ui/Host.h"
#include "ui/qt/ChanceRemark.h"
#include "ui/qt/GridExport.h"
#include "ui/qt/GridView.h"
#include "ui/qt/IssueCombo.h"
#include "ui/qt/LineChart.h"
#include "ui/qt/ProgressStrip.h"
#include "ui/qt/Qs.h"
#include "ui/qt/form.h"
#include "workbench/FormulaFilters.h"
#include "workbench/FormulaStatistics.h"
#include "workbench/FormulaTrend.h"
#include "workbench/frmShaHaoYLSX.h"

namespace ssq {

namespace {

enum Tab { kResultsTab, kFiltersTab, kChartTab };

struct TabEntry {
    const char* caption;
    const char* key;
    const char* tip;
};

constexpr std::array kTabs = {
    TabEntry{"公式统计结果", "gstjjg",
             "软件内置130种公式，每条公式为6码组合，公式号码为下期预测号码"},
    TabEntry{" 公式筛选", "gsxs", "对公式统计的结果进行筛选"},
    TabEntry{"公式走势图", "gszst", "选择公式后查看该公式的命中走势"},
};

}  // namespace

frmShaHao::frmShaHao(const PanelContext& context, QWidget* parent)
    : Panel(context, parent, {"frmShaHao", "公式胆杀--胆杀利器", 1100, 720}) {
    auto* column = new QVBoxLayout(this);
    BuildInputs(column);
    BuildTabs(column);
    FillIssueCombo(this->context(), *cboEdate_);
    DeclarePopups();
    ShowOnly(kResultsTab);
}

void frmShaHao::TakeNewDraws() {
    RefillIssueCombos(this->context(), {cboEdate_});
}

void frmShaHao::BuildInputs(QBoxLayout* column) {
    auto* inputs = AddRow(AddGroup(column, "Frame1", QStringLiteral("分析条件")));
    cboEdate_ = AddIssueCombo(inputs, "cboEdate", QStringLiteral("截至期号:"));
    cboWhere_ = AddCombo(inputs, "cboWhere", QStringLiteral("命中："));
    for (const char* comparison : kComparisons) cboWhere_->addItem(QString::fromUtf8(comparison));
    cboNum_ = AddCombo(inputs, "CboNUM", {}, {"0", "1", "2", "3", "4"});
    cboNum_->setCurrentIndex(1);
    SetMainButton(AddButton(inputs, "Command1", QStringLiteral("统计公式"), [this] {
        Perform({.strip = progress_}, [this](Run& run) { return FormulaStatistics(run); });
    }));
    nextDraw_ = AddLabel(inputs, "LBLXQ", {});
    progress_ = new ProgressStrip(QStringLiteral("正在工作中......."));
    column->addWidget(progress_);
}

void frmShaHao::BuildTabs(QBoxLayout* column) {
    tab1_ = new QTabBar;
    tab1_->setObjectName(QStringLiteral("tab1"));
    tab1_->setExpanding(false);
    for (const TabEntry& entry : kTabs) {
        const int tab = tab1_->addTab(QString::fromUtf8(entry.caption));
        tab1_->setTabData(tab, QString::fromUtf8(entry.key));
        tab1_->setTabToolTip(tab, QString::fromUtf8(entry.tip));
    }
    column->addWidget(tab1_);

    // Keeps its room while all views are hidden.
    auto* stack = new QWidget;
    auto* views = new QVBoxLayout(stack);
    views->setContentsMargins(0, 0, 0, 0);
    column->addWidget(stack, 1);
    vs1_ = AddGrid(this->context(), views, "vs1");
    vs1_->SetEmptyHint(QStringLiteral("还没有统计结果。"), QStringLiteral("点此统计公式"),
                       [this] { mainButton()->click(); });
    BuildFilters(views);
    BuildChart(views);
    column->addWidget(remark_ = new ChanceRemark(context()));
    connect(tab1_, &QTabBar::currentChanged, this, [this](int tab) { ShowView(tab); });
    // A click on the tab that is selected already looks again what there is to show.
    connect(tab1_, &QTabBar::tabBarClicked, this, [this](int tab) {
        if (tab == tab1_->currentIndex()) ShowView(tab);
    });
}

void frmShaHao::BuildFilters(QBoxLayout* views) {
    filters_ = AddGroup(views, "Frame2", QStringLiteral("筛选条件"));
    auto* row = AddRow(filters_);
    cboYLCS_ = AddFreeCombo(row, "cboYLCS", QStringLiteral("当前遗漏次数>="),
                            {"1", "5", "10", "30", "50", kGapFilter.maximumKeyword});
    SetMainButtonOf(cboYLCS_, AddButton(row, "Command2", QStringLiteral("筛选"),
                                        [this] { Filter(kGapFilter, cboYLCS_->currentText()); }));
    cboYCCS_ = AddFreeCombo(row, "cboYCCS", QStringLiteral("当前连出次数>="),
                            {"1", "5", "10", "30", "50", kRunFilter.maximumKeyword});
    SetMainButtonOf(cboYCCS_, AddButton(row, "Command3", QStringLiteral("筛选"),
                                        [this] { Filter(kRunFilter, cboYCCS_->currentText()); }));
    txtGL_ = AddTextBox(row, "txtGL", QStringLiteral("出现概率>="));
    SetMainButtonOf(txtGL_, AddButton(row, "Command4", QStringLiteral("筛选"),
                                      [this] { Filter(kRateFilter, txtGL_->text()); }));
    AddButton(row, "Command5", QStringLiteral("遗漏筛选"), [this] { ShowOmissionScreen(); });
    vs2_ = AddGrid(this->context(), views, "vs2");
    vs2_->SetEmptyHint(QStringLiteral("没有筛选出的公式。"),
                       QStringLiteral("点此按当前遗漏次数筛选"),
                       [this] { Filter(kGapFilter, cboYLCS_->currentText()); });
}

void frmShaHao::BuildChart(QBoxLayout* views) {
    cboZst_ = AddCombo(AddRow(views), "cboZst", {});
    for (const TrendLength& length : kTrendLengths) {
        cboZst_->addItem(QString::fromUtf8(length.caption));
    }
    connect(cboZst_, &QComboBox::activated, this, [this] { ChangeChartLength(); });
    chart_ = AddLineChart(context(), views, "ZST");
}

void frmShaHao::DeclarePopups() {
    for (GridView* view : {vs1_, vs2_}) {
        view->onDoubleClick = [this, view](int row, int) {
            if (row >= view->grid().fixedRows()) OpenChart(*view, row);
        };
        const auto copy = [view] { CopySelection(*view); };
        const auto chart = [this, view] { OpenChart(*view, view->pressedRow()); };
        const auto screen = [this] { ShowOmissionScreen(); };
        const auto hasRows = [view] { return view->grid().rows() > 1; };
        if (view == vs1_) {
            SetPopup(this->context(), *view, "m_gongshi", "公式",
                     {{"haomao_fuz", "复制号码", copy},
                      {"gszst", "该公式走势图", chart},
                      {"gs_ylsx", "遗漏筛选", screen}},
                     hasRows);
        } else {
            SetPopup(this->context(), *view, "m_gongshi1", "公式1",
                     {{"gs1_fz", "复制号码", copy},
                      {"gs1_gshm", "该公式走势图", chart},
                      {"gs1_fztj", "复制为条件格式", [view] { CopySelectionAsCondition(*view); }},
                      {"gs1_xuanhao", "加入选号台",
                       [this, view] { AddSelectionToPlan(this->context(), *view); }},
                      {"gs1_ylsx", "遗漏筛选", screen}},
                     hasRows);
        }
    }
}

void frmShaHao::ShowOmissionScreen() {
    if (!omissionScreen_ || omissionScreen_->isClosed()) {
        omissionScreen_ = new frmShaHaoYLSX(this->context(), *this);
    }
    omissionScreen_->Open();
}

const ResultGrid& frmShaHao::statistics() const {
    return vs1_->grid();
}

std::string frmShaHao::endIssue() const {
    return cboEdate_->issue();
}

std::string frmShaHao::conditionText() const {
    return (cboWhere_->currentText() + cboNum_->currentText()).toStdString();
}

bool frmShaHao::FormulaStatistics(Run& run) {
    vs1_->SetGrid({});
    vs2_->SetGrid({});
    remark_->Show({});
    SelectTab(kResultsTab);
    const FormulaCondition condition{cboWhere_->currentText().toStdString(),
                                     cboNum_->currentText().toInt()};
    auto report = ssq::FormulaStatistics(session(), condition, endIssue(), run);
    if (!report) return false;
    nextDraw_->setText(Qs(report->nextDrawLine));
    vs1_->SetGrid(std::move(report->grid));
    remark_->Show(report->remark, {{"cboFangFa", "单条公式"},
                                   {"cboWhere", condition.comparison},
                                   {"CboNUM", std::to_string(condition.reds)},
                                   {"cboFxqs", "全部"}});
    return true;
}

void frmShaHao::Filter(const FormulaFilter& filter, const QString& threshold) {
    auto report =
        FilterForWorkbench(session(), statistics(), endIssue(), filter, threshold.toStdString());
    if (!report) return;
    vs2_->SetGrid(std::move(report->grid));
    filters_->setTitle(Qs(report->caption));
}

void frmShaHao::SelectTab(int tab) {
    if (tab1_->currentIndex() == tab) {
        ShowView(tab);
    } else {
        tab1_->setCurrentIndex(tab);
    }
}

void frmShaHao::ShowView(int tab) {
    const bool isRowSelected = vs1_->grid().row() >= 0 || vs2_->grid().row() >= 0;
    if (tab != kChartTab || isRowSelected) {
        ShowOnly(tab);
        return;
    }
    ShowOnly(-1);
    session().host.ShowMessage("请先选择公式后,双击已经统计好的某行公式就可以显示了哦！");
}

// Hides before it shows, so that the panel never has to make room for two views at once.
void frmShaHao::ShowOnly(int tab) {
    const std::initializer_list<std::pair<QWidget*, int>> views = {{vs1_, kResultsTab},
                                                                   {filters_, kFiltersTab},
                                                                   {vs2_, kFiltersTab},
                                                                   {cboZst_, kChartTab},
                                                                   {chart_, kChartTab}};
    for (const bool shown : {false, true}) {
        for (const auto& [view, itsTab] : views) {
            if ((itsTab == tab) == shown) view->setVisible(shown);
        }
    }
}

void frmShaHao::OpenChart(const GridView& view, int row) {
    const ResultGrid& grid = view.grid();
    if (grid.rows() < 2) return;
    if (row < grid.fixedRows()) row = grid.row();  // pressed beside the rows
    const std::string& key = grid.cell(row, kKeyColumn);
    if (key.empty()) return;
    chartKey_ = key;
    tab1_->setTabText(kChartTab, Qs("公式" + key + "的走势图"));
    SelectTab(kChartTab);
    DrawChart();
}

void frmShaHao::ChangeChartLength() {
    if (chartKey_.empty()) return;
    if (vs1_->grid().rows() >= 2 || vs2_->grid().rows() >= 2) DrawChart();
}

void frmShaHao::DrawChart() {
    const int position = cboEdate_->findText(Qs(endIssue()));
    if (position < 0) {
        session().host.ShowMessage("期号填写错误！");
        return;
    }
    const int periods = kTrendLengths[static_cast<std::size_t>(cboZst_->currentIndex())].periods;
    const int start = std::min(position + periods, cboEdate_->count()) - 1;
    const PeriodRange range{cboEdate_->itemText(start).toStdString(), endIssue()};
    auto trend = FormulaTrend(session(), chartKey_, range, periods);
    if (!trend) return;
    chart_->Show({.title = std::move(trend->title),
                  .labels = std::move(trend->labels),
                  .values = std::move(trend->values),
                  .min = kTrendAxisMin,
                  .max = kTrendAxisMax,
                  .division = kTrendAxisDivision,
                  .series = "1"});
}

}  // namespace ssq
