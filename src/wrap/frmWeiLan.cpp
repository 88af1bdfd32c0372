#include "wrap/frmWeiLan.h"

#include "ui/qt/GridExport.h"
#include "ui/qt/GridView.h"
#include "ui/qt/form.h"
#include "wrap/BlueWrap.h"

namespace ssq {

frmWeiLan::frmWeiLan(const PanelContext& context, QWidget* parent)
    : RangePanel(context, parent,
                 {.form = {"frmWeiLan", " 智能围蓝", 900, 680},
                  .startEntry = kStartSixtyDraws,
                  .drawsBefore = 4}) {
    AddRunButton({"Command1", "围蓝"},
                 [this](Run&) { return Show(BuildBlueWrap(session(), range())); });
    GridView* vs1 = AddResults("Frame2", "智能围蓝结果(选择号码点鼠标右键可进行复制)");
    AddRemark([] { return ControlTexts{{"cboFangFa", "智能围蓝"}}; });
    SetPopup(context, *vs1, "m_fz1", "复制号码1",
             {{"m_fz", "复制号码", [vs1] { CopySelection(*vs1); }}},
             [vs1] { return vs1->grid().rows() >= 2; });
}

}  // namespace ssq
