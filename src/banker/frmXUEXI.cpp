#include "banker/frmXUEXI.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

#include "draws/BankerSettings.h"
#include "draws/Public_var.h"
#include "ui/qt/form.h"

namespace ssq {

frmXUEXI::frmXUEXI(const PanelContext& context, QWidget* parent)
    : QDialog(parent), context_(context) {
    auto* column = SetUpPanel(*this, "frmXUEXI", QStringLiteral(" 智能学习设置"), 360, 120);
    auto* settings = AddRow(column);
    periods_ = AddTextBox(settings, "Text1", QStringLiteral("学习期数:"));
    bankers_ = AddCombo(settings, "cboDMGS", QStringLiteral("胆码个数:"),
                        {"1胆", "2胆", "3胆", "4胆", "5胆"});
    auto* buttons = AddRow(column);
    AddButton(buttons, "Command1", QStringLiteral("确定"), [this] { Save(); })->setDefault(true);
    AddButton(buttons, "Command2", QStringLiteral("取消"), [this] { reject(); });
    Load();
}

void frmXUEXI::Load() {
    const auto settings = ReadBankerSettings(context_.session);
    periods_->setText(settings ? QString::number(settings->xxqs) : QString());
    bankers_->setCurrentIndex(settings ? settings->dmgs - 1 : -1);
}

void frmXUEXI::Save() {
    const int dmgs = bankers_->currentIndex() + 1;
    if (SaveBankerSettings(context_.session, periods_->text().toStdString(), dmgs)) accept();
}

}  // namespace ssq
