#include "stats/frmHongHaomaGens.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QLineEdit>

#include "draws/Public_var.h"
#include "stats/FollowStatistics.h"
#include "ui/qt/form.h"

namespace ssq {

namespace {

constexpr int kRangeOpens = 28;           // entries below the newest issue
constexpr int kLongestList = 33 * 3 - 1;  // characters: all reds once
constexpr int kListWidth = 420;           // pixels, for a list of some twenty numbers

}  // namespace

frmHongHaomaGens::frmHongHaomaGens(const PanelContext& context, QWidget* parent)
    : RangePanel(context, parent, {{"frmHongHaomaGens", "号码跟随统计", 1200, 760}, kRangeOpens}) {
    txtHM_ = AddTextBox(inputs(), "txtHM", QStringLiteral("输入号码："));
    txtHM_->setText(QStringLiteral("01,02,03,04,05,06,07"));
    txtHM_->setFixedWidth(kListWidth);
    txtHM_->setMaxLength(kLongestList);
    cboN_ = AddCombo(inputs(), "cboN", {}, {"1码", "2码", "3码"});
    AddRunButton({"Command1", "分析"}, [this](Run& run) { return Analyse(run); });
    AddResults("Frame2",
               "号码跟随统计,分解任意输入的号码为1码，2码，3码的命中走势图，"
               "全码为您输入的所有号码的命中个数");
    AddRemark();
}

bool frmHongHaomaGens::Analyse(Run& run) {
    const std::string list = txtHM_->text().toStdString();
    if (!CheckNumberList(session().host, list)) {
        txtHM_->setFocus();
        return false;
    }
    return Show(BuildFollowStatistics(session(), {range(), list, cboN_->currentIndex() + 1}, run));
}

}  // namespace ssq
