#include "history/frmHistory.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QGroupBox>
#include <QLineEdit>
#include <utility>

#include "draws/Public_var.h"
#include "ui/qt/GridView.h"
#include "ui/qt/IssueCombo.h"
#include "ui/qt/form.h"

namespace ssq {

frmHistory::frmHistory(const PanelContext& context, QWidget* parent)
    : QWidget(parent), context_(context) {
    auto* column = SetUpPanel(*this, "frmHistory", QStringLiteral(" 开奖历史数据"), 1100, 640);
    auto* query = AddRow(column);
    start_ = AddIssueCombo(query, "cboSdate", QStringLiteral("开始期号:"));
    end_ = AddIssueCombo(query, "cboEdate", QStringLiteral("结束期号:"));
    pool_ = AddFilter(query, "CHKjc", QStringLiteral("奖池>="), "txtJCs", "txtJCe");
    firstPrizes_ = AddFilter(query, "chkYD", QStringLiteral("一等注数>="), "txtYDs", "txtYDe");
    AddButton(query, "Command1", QStringLiteral("查询"), [this] { Query(); });
    auto* group = AddGroup(column, nullptr,
                           QStringLiteral("查询结果 下期奖池列蓝色表示奖池大于2亿  "
                                          "返奖比例蓝色表示返奖比例大于等于50% "));
    vs1_ = AddGrid(group, "vs1");
    FillIssueCombos(context_, *start_, *end_, true);
}

frmHistory::FilterControls frmHistory::AddFilter(QHBoxLayout* row, const char* name,
                                                 const QString& caption, const char* fromName,
                                                 const char* toName) {
    auto* ticked = AddCheckBox(row, name, caption);
    auto* from = AddTextBox(row, fromName, {});
    auto* to = AddTextBox(row, toName, QStringLiteral("<="));
    from->setAccessibleName(caption);
    return {ticked, from, to};
}

NumberFilter frmHistory::FilterControls::Read() const {
    return {ticked->isChecked(), from->text().toStdString(), to->text().toStdString()};
}

void frmHistory::Query() {
    const HistoryRequest request{RangeOf(*start_, *end_), pool_.Read(), firstPrizes_.Read()};
    ResultGrid grid;
    if (!ShowHistory(context_.session, request, grid)) return;
    const int draws = grid.rows() - grid.fixedRows();
    vs1_->SetGrid(std::move(grid));
    if (draws > 0) setWindowTitle(QStringLiteral(" 开奖历史数据__共%1期开奖数据").arg(draws));
}

}  // namespace ssq
