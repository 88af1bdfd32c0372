#include "history/frmHistory.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLineEdit>

#include "ui/qt/form.h"

namespace ssq {

frmHistory::frmHistory(const PanelContext& context, QWidget* parent)
    : RangePanel(context, parent,
                 {.form = {"frmHistory", " 开奖历史数据", 1100, 640}, .inputsName = nullptr}) {
    pool_ = AddFilter("CHKjc", QStringLiteral("奖池>="), "txtJCs", "txtJCe");
    firstPrizes_ = AddFilter("chkYD", QStringLiteral("一等注数>="), "txtYDs", "txtYDe");
    AddRunButton({"Command1", "查询"}, [this](Run&) { return Query(); });
    AddResults(nullptr,
               "查询结果 下期奖池列蓝色表示奖池大于2亿  返奖比例蓝色表示返奖比例大于等于50% ");
}

frmHistory::FilterControls frmHistory::AddFilter(const char* name, const QString& caption,
                                                 const char* fromName, const char* toName) {
    auto* ticked = AddCheckBox(inputs(), name, caption);
    auto* from = AddTextBox(inputs(), fromName, {});
    auto* to = AddTextBox(inputs(), toName, QStringLiteral("<="));
    from->setAccessibleName(caption);
    return {ticked, from, to};
}

NumberFilter frmHistory::FilterControls::Read() const {
    return {ticked->isChecked(), from->text().toStdString(), to->text().toStdString()};
}

bool frmHistory::Query() {
    auto report = BuildHistory(session(), {range(), pool_.Read(), firstPrizes_.Read()});
    if (!report) return false;
    const int draws = report->grid.rows() - report->grid.fixedRows();
    if (draws > 0) setWindowTitle(QStringLiteral(" 开奖历史数据__共%1期开奖数据").arg(draws));
    return Show(std::move(report));
}

}  // namespace ssq
