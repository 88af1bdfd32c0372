#include "tools/frmDFjishuan.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>

#include "base/numbers.h"
#include "draws/Draw.h"
#include "draws/Public_var.h"
#include "tools/Calculators.h"
#include "ui/qt/Qs.h"
#include "ui/qt/form.h"

namespace ssq {

namespace {

constexpr int kMostBankers = 5;
constexpr int kMostDrags = 16;

QComboBox* AddCount(QBoxLayout* row, const char* name, const QString& label, int most) {
    QComboBox* combo = AddCombo(row, name, label);
    for (int count = 1; count <= most; ++count) combo->addItem(QString::number(count));
    return combo;
}

int CountOf(const QComboBox* combo) {
    return combo->currentIndex() + 1;
}

}  // namespace

frmDFjishuan::frmDFjishuan(const PanelContext& context, QWidget* parent)
    : Panel(context, parent, {"frmDFjishuan", " 胆拖|复式金额计算器", 560, 240}) {
    auto* column = new QVBoxLayout(this);
    BuildBankerBet(*column);
    BuildMultipleBet(*column);
    column->addStretch();
}

void frmDFjishuan::BuildBankerBet(QBoxLayout& column) {
    auto* group = AddGroup(&column, "Frame1", QStringLiteral("胆拖金额计算"));
    auto* counts = AddRow(group);
    bankers_ = AddCount(counts, "CBOdan", QStringLiteral("胆码个数："), kMostBankers);
    drags_ = AddCount(counts, "CBOtuo", QStringLiteral("拖码个数："), kMostDrags);
    blues_ = AddCount(counts, "CBOblue", QStringLiteral("蓝球个数："), kBlues);
    SetMainButton(
        AddButton(counts, "Command1", QStringLiteral("计算"), [this] { PriceBankerBet(); }));
    auto* price = AddRow(group);
    AddLabel(price, nullptr, QStringLiteral("金额："));
    bankerPrice_ = AddLabel(price, "LBLdtJG", {});
    bankerPrice_->setTextInteractionFlags(Qt::TextSelectableByMouse);
}

void frmDFjishuan::BuildMultipleBet(QBoxLayout& column) {
    auto* group = AddGroup(&column, "Frame2", QStringLiteral("复式金额计算"));
    auto* counts = AddRow(group);
    multipleReds_ = AddCount(counts, "cboHong", QStringLiteral("红球个数："), kReds);
    multipleBlues_ = AddCount(counts, "cboFblue", QStringLiteral("蓝球个数："), kBlues);
    auto* price =
        AddButton(counts, "Command2", QStringLiteral("计算"), [this] { PriceMultipleBet(); });
    SetMainButtonOf(group, price);
    auto* result = AddRow(group);
    multiplePrice_ = AddTextBox(result, "txtFjg", QStringLiteral("金额："));
    multiplePrice_->setReadOnly(true);
}

void frmDFjishuan::PriceBankerBet() {
    if (const auto price =
            BankerBetPrice(session().host, CountOf(bankers_), CountOf(drags_), CountOf(blues_))) {
        bankerPrice_->setText(Qs(NumberText(*price)));
    }
}

void frmDFjishuan::PriceMultipleBet() {
    if (const auto price =
            MultipleBetPrice(session().host, CountOf(multipleReds_), CountOf(multipleBlues_))) {
        multiplePrice_->setText(Qs(NumberText(*price)));
    }
}

}  // namespace ssq
