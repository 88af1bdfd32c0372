#include "kill/frmSHAMAxxjl.h"

#include <QBoxLayout>
#include <QGroupBox>

#include "base/numbers.h"
#include "kill/KillRecords.h"
#include "ui/qt/GridView.h"
#include "ui/qt/form.h"

namespace ssq {

frmSHAMAxxjl::frmSHAMAxxjl(const PanelContext& context, OnRestored onRestored, QWidget* parent)
    : PanelDialog(context, parent, {"frmSHAMAxxjl", "杀号学习记录", 620, 440}),
      onRestored_(std::move(onRestored)) {
    vs1_ = AddGrid(this->context(), AddGroup(column(), "Frame2", {}), "vs1");
    vs1_->SetEmptyHint(QStringLiteral("还没有学习记录。"), QStringLiteral("点此智能学习"),
                       [this] { done(kWantsLearning); });
    auto* row = AddRow(column());
    AddLabel(row, "Label1", QStringLiteral("提示: 选中某条记录后，点击还原可以还原到选中的设置"));
    row->insertStretch(1);
    SetMainButton(AddButton(row, "Command1", QStringLiteral("还原记录"), [this] { Restore(); }));
    AddButton(row, "Command2", QStringLiteral("退出"), [this] { reject(); });
    Load();
}

void frmSHAMAxxjl::Load() {
    if (auto grid = ReadKillRecords(session())) vs1_->SetGrid(std::move(*grid));
}

void frmSHAMAxxjl::Restore() {
    const ResultGrid& grid = vs1_->grid();
    const int row = grid.row();
    const auto number = [&](int col) { return WholePart(grid.cell(row, col)); };
    if (!RestoreKillRecord(session(), number(0))) return;
    onRestored_(std::to_string(number(2)), ToInt(number(4)));
}

}  // namespace ssq
