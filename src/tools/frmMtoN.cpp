#include "tools/frmMtoN.h"

#include <QBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <cmath>

#include "base/numbers.h"
#include "draws/Public_var.h"
#include "draws/public_fun.h"
#include "tools/Calculators.h"
#include "ui/Host.h"
#include "ui/qt/Qs.h"
#include "ui/qt/form.h"

namespace ssq {

frmMtoN::frmMtoN(const PanelContext& context, QWidget* parent)
    : Panel(context, parent, {"frmMtoN", " 排列组合计算器", 420, 110}) {
    constexpr int kLongestNumber = 20;  // characters
    auto* column = new QVBoxLayout(this);
    auto* row = AddRow(column);
    txtM_ = AddTextBox(row, "txtM", {});
    txtM_->setText(QStringLiteral("33"));
    txtN_ = AddTextBox(row, "txtN", QStringLiteral("选"));
    txtN_->setText(QStringLiteral("6"));
    for (QLineEdit* number : {txtM_, txtN_}) number->setMaxLength(kLongestNumber);
    AddLabel(row, nullptr, QStringLiteral("="));
    result_ = AddLabel(row, "LBLJG", {});
    result_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* buttons = AddRow(column);
    SetMainButton(AddButton(buttons, "Command1", QStringLiteral("计算"), [this] { Calculate(); }));
    AddButton(buttons, "Command2", QStringLiteral("退出"), [this] { close(); });
}

void frmMtoN::Calculate() {
    const std::string m = txtM_->text().toStdString();
    const std::string n = txtN_->text().toStdString();
    if (!CheckRange(session().host, n, m)) return;
    const double result = Combinations(*ParseNumber(m), *ParseNumber(n));
    if (!std::isfinite(result)) {
        session().host.ShowMessage("结果太大，无法计算！");
        return;
    }
    result_->setText(Qs(NumberText(result)));
}

}  // namespace ssq
