#include "acquire/frmSale.h"

#include "acquire/Sales.h"
#include "draws/Public_var.h"
#include "ui/Host.h"
#include "ui/qt/GridView.h"

namespace ssq {

namespace {

constexpr int kRangeOpens = 20;  // entries below the newest issue

}  // namespace

frmSale::frmSale(const PanelContext& context, QWidget* parent)
    : RangePanel(context, parent,
                 {{"frmSale", " 在线销售分析", 1200, 640}, kRangeOpens, "Frame2", ""}) {
    AddRunButton({"Command1", "查询"}, [this](Run&) { return Query(); });
    AddRunButton({.name = "Command2",
                  .caption = "更新销售数据",
                  .isDisabledInRun = true,
                  .busyCaption = "更新中.."},
                 [this](Run& run) { return Update(run); });
    AddResults("Frame1", "数据来自销售网站的实时销量，号码越靠前购买的人越多");
}

bool frmSale::Query() {
    results().SetGrid({});
    return Show(BuildSalesTable(session(), range()));
}

bool frmSale::Update(Run& run) {
    TellStatus("正在读取销售数据…");
    const UpdateResult result = UpdateSales(session(), run);
    if (run.goesOn()) TellStatus("销售数据：" + StatusText(result));
    if (!run.goesOn()) return false;
    if (!result.box.empty()) session().host.ShowMessage(result.box);
    return run.goesOn() && Query();
}

void frmSale::TellStatus(const std::string& text) {
    if (context().tellStatus) context().tellStatus(text);
}

}  // namespace ssq
