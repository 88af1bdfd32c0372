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
    : PanelDialog(context, parent, {"frmXUEXI", " 智能学习设置", 360, 120}) {
    auto* settings = AddRow(column());
    periods_ = AddTextBox(settings, "Text1", QStringLiteral("学习期数:"));
    bankers_ = AddCombo(settings, "cboDMGS", QStringLiteral("胆码个数:"),
                        {"1胆", "2胆", "3胆", "4胆", "5胆"});
    auto* buttons = AddRow(column());
    SetMainButton(AddButton(buttons, "Command1", QStringLiteral("确定"), [this] { Save(); }));
    AddButton(buttons, "Command2", QStringLiteral("取消"), [this] { reject(); });
    Load();
}

void frmXUEXI::Load() {
    const auto settings = ReadBankerSettings(session());
    periods_->setText(settings ? QString::number(settings->xxqs) : QString());
    bankers_->setCurrentIndex(settings ? settings->dmgs - 1 : -1);
}

void frmXUEXI::Save() {
    const int dmgs = bankers_->currentIndex() + 1;
    if (!SaveBankerSettings(session(), periods_->text().toStdString(), dmgs)) return;
    if (context().onBankerSettings) context().onBankerSettings();
    accept();
}

}  // namespace ssq
