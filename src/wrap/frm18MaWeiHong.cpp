#include "wrap/frm18MaWeiHong.h"

#include "ui/qt/GridExport.h"
#include "ui/qt/GridView.h"
#include "ui/qt/form.h"
#include "wrap/RedWrap.h"

namespace ssq {

namespace {

constexpr int kStartEntry = 29;

}  // namespace

frm18MaWeiHong::frm18MaWeiHong(const PanelContext& context, QWidget* parent)
    : RangePanel(context, parent,
                 {.form = {"frm18MaWeiHong", " 18码围红", 1120, 680},
                  .startEntry = kStartEntry,
                  .drawsBefore = kWrapDepth}) {
    AddProgress("正在计算中.......");
    AddRunButton({.name = "Command1",
                  .caption = "围红推荐",
                  .isDisabledInRun = true,
                  .staysAfterFailure = true},
                 [this](Run& run) {
                     ClearResults();
                     return Show(BuildRedWrap(session(), range(), run));
                 });
    GridView* vs1 = AddResults("Frame2", "围红推荐结果(选择号码点鼠标右键可进行复制)");
    AddRemark([] { return ControlTexts{{"cboFangFa", "智能围红"}}; });
    SetPopup(context, *vs1, "m_fz18", "复制号码1",
             {{"m_fz181", "复制号码", [vs1] { CopySelection(*vs1); }}},
             [vs1] { return vs1->grid().rows() >= 2; });
}

}  // namespace ssq
