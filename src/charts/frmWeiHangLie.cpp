#include "charts/frmWeiHangLie.h"

#include <QBoxLayout>
#include <QComboBox>

#include "charts/RowColumnChart.h"
#include "draws/Public_var.h"
#include "ui/Host.h"
#include "ui/qt/GridView.h"
#include "ui/qt/Qs.h"
#include "ui/qt/form.h"

namespace ssq {

frmWeiHangLie::frmWeiHangLie(const PanelContext& context, QWidget* parent)
    : RangePanel(context, parent, {{"frmWeiHangLie", " 尾数行列图", 960, 760}, kStartSixtyDraws}) {
    cboZtype_ = AddCombo(inputs(), "cboZtype", QStringLiteral("走势图类型:"));
    for (const TailLayout& layout : kTailLayouts) {
        cboZtype_->addItem(Qs(std::string(layout.caption)));
    }
    cboHM_ = AddCombo(inputs(), "cboHM", {}, {"大小顺序", "出球顺序"});
    AddRunButton({"Command1", "分析"}, [this](Run&) { return Analyse(); });
    AddButton(inputs(), "Command2", QStringLiteral("帮助"),
              [this] { session().host.ShowMessage(TailLayoutHelp()); });
    AddResults("Frame2", "分析结果")->SetCrosshair();
}

bool frmWeiHangLie::Analyse() {
    const BallOrder order = cboHM_->currentIndex() == 1 ? BallOrder::kAsDrawn : BallOrder::kBySize;
    return Show(BuildRowColumnChart(session(), range(), order, cboZtype_->currentIndex()));
}

}  // namespace ssq
