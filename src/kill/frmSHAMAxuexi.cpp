#include "kill/frmSHAMAxuexi.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>

#include "base/numbers.h"
#include "ui/qt/MDLcolse.h"
#include "ui/qt/Qs.h"
#include "ui/qt/form.h"

namespace ssq {

frmSHAMAxuexi::frmSHAMAxuexi(const PanelContext& context, QWidget* parent)
    : PanelDialog(context, parent,
                  {"frmSHAMAxuexi", "杀号学习设置(学习期数最好在10期内)", 580, 200}) {
    auto* settings = AddGroup(column(), "Frame1", QStringLiteral("设置条件"));
    auto* values = AddRow(settings);
    size_ = AddCombo(values, "cboSmGs", QStringLiteral("杀码个数："),
                     {"杀6码", "杀12码", "杀18码", "杀24码"});
    xxqs_ = AddTextBox(values, "txtQS", QStringLiteral("学习期数："));
    rate_ = AddTextBox(values, "txtGL", QStringLiteral("杀对概率："));
    auto* tolerance = AddRow(settings);
    tolerant_ = AddCheckBox(tolerance, "cheYC", QStringLiteral("允许杀错个数,默认不允许杀错"));
    rc_ = AddCombo(tolerance, "cboycGs", {});

    auto* buttons = AddRow(column());
    SetMainButton(AddButton(buttons, "Command1", QStringLiteral("确定"), [this] { Save(); }));
    AddButton(buttons, "Command2", QStringLiteral("退出"), [this] { reject(); });
    AddButton(buttons, "Command3", QStringLiteral("恢复默认值"), [this] { RestoreDefaults(); });
    RemoveCloseEntry(*this, 0);
    Load();
    // Also told when the size chosen already is chosen again.
    connect(size_, &QComboBox::activated, this, [this](int dmgs) { Propose(dmgs); });
    connect(tolerant_, &QCheckBox::toggled, rc_, &QComboBox::setEnabled);
}

void frmSHAMAxuexi::Load() {
    constexpr int kDraws = 10;
    const auto settings = ReadKillSettings(session());
    opened_ = settings.value_or(KillSettings{});
    // A size that is none of the list leaves nothing chosen.
    size_->setCurrentIndex(opened_.dmgs >= 0 && opened_.dmgs < size_->count() ? opened_.dmgs : -1);
    Propose(size_->currentIndex());
    xxqs_->setText(QString::number(settings ? settings->xxqs : kDraws));
    rate_->setText(settings ? Qs(NumberText(settings->setRate)) : QStringLiteral("90"));
    if (opened_.rc > 0) {
        tolerant_->setChecked(true);
        rc_->setCurrentIndex(std::min(opened_.rc, rc_->count() - 1));
    }
    rc_->setEnabled(tolerant_->isChecked());
}

void frmSHAMAxuexi::Propose(int dmgs) {
    if (dmgs >= 0) Show(ProposeKillSettings(dmgs, opened_));
}

void frmSHAMAxuexi::Show(const KillProposal& proposal) {
    rc_->clear();
    for (int rc = 0; rc < proposal.rcItems; ++rc) rc_->addItem(QString::number(rc));
    rc_->setCurrentIndex(proposal.rcSelected);
    tolerant_->setChecked(proposal.tolerant);
    rate_->setText(Qs(proposal.rateText));
}

void frmSHAMAxuexi::RestoreDefaults() {
    if (size_->currentIndex() >= 0) Show(DefaultKillSettings(size_->currentIndex()));
    xxqs_->setText(QString::number(kDefaultKillDraws));
}

void frmSHAMAxuexi::Save() {
    const KillSettingsInput input{xxqs_->text().toStdString(), rate_->text().toStdString(),
                                  size_->currentIndex(), tolerant_->isChecked(),
                                  rc_->currentIndex()};
    if (SaveKillSettings(session(), input)) accept();
}

}  // namespace ssq
