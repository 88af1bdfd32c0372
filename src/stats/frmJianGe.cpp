#include "stats/frmJianGe.h"

#include "stats/RedCombinations.h"

namespace ssq {

frmJianGe::frmJianGe(const PanelContext& context, QWidget* parent)
    : RangePanel(context, parent, {{"frmJianGe", " 红球间隔统计", 1000, 760}, kStartSixtyDraws}) {
    AddRunButton({"Command1", "查询"},
                 [this](Run&) { return Show(BuildGaps(session(), range())); });
    AddResults("Frame2",
               "间隔统计结果 注：a12 表示红球第一位和第二位的间隔,以此类推 "
               "蓝色标记块表示与上期的值重复");
}

frmHeZhi::frmHeZhi(const PanelContext& context, QWidget* parent)
    : RangePanel(context, parent,
                 {{"frmHeZhi", " 红球组合和值统计", 1280, 760}, kStartSixtyDraws}) {
    AddRunButton({"Command1", "查询"},
                 [this](Run&) { return Show(BuildSums(session(), range())); });
    AddResults("Frame2",
               "红球组合和值统计结果 注：a12 表示红球第一位和第二位的和值,以此类推 "
               "蓝色标记块表示与上期的值重复");
}

}  // namespace ssq
