#include "banker/frmxxjl.h"

#include <QBoxLayout>

#include "draws/Public_var.h"
#include "ui/Host.h"
#include "ui/qt/GridView.h"
#include "ui/qt/form.h"

namespace ssq {

frmxxjl::frmxxjl(const PanelContext& context, QWidget* parent)
    : PanelDialog(context, parent, {"frmxxjl", " 学习记录", 520, 420}) {
    vs1_ = AddGrid(this->context(), column(), "vs1");
    vs1_->SetEmptyHint(QStringLiteral("还没有学习记录。"), QStringLiteral("点此开始学习"),
                       [this] { done(kWantsLearning); });
    auto* row = AddRow(column());
    AddLabel(row, "Label1", QStringLiteral("提示: 点击还原可以还原到选中的设置"));
    row->insertStretch(1);
    SetMainButton(AddButton(row, "Command1", QStringLiteral("还原"), [this] { Restore(); }));
    AddButton(row, "Command2", QStringLiteral("退出"), [this] { reject(); });
    Load();
}

void frmxxjl::Load() {
    auto log = ReadLearningRecords(session());
    if (!log) return;
    records_ = std::move(log->records);
    vs1_->SetGrid(std::move(log->grid));
}

void frmxxjl::Restore() {
    const int row = vs1_->grid().rowSel();
    if (row < 1 || row > static_cast<int>(records_.size())) {
        session().host.ShowMessage("请先选中一条学习记录！");
        return;
    }
    if (!RestoreLearningRecord(session(), records_[static_cast<std::size_t>(row - 1)])) return;
    if (context().onBankerSettings) context().onBankerSettings();
}

}  // namespace ssq
