#include "stats/frmLengRe.h"

#include <QBoxLayout>
#include <QComboBox>

#include "draws/NumberSource.h"
#include "draws/Public_var.h"
#include "stats/HeatRanking.h"
#include "ui/Host.h"
#include "ui/qt/GridExport.h"
#include "ui/qt/GridView.h"
#include "ui/qt/form.h"
#include "ui/qt/placing.h"

namespace ssq {

frmLengRe::frmLengRe(const PanelContext& context, QWidget* parent)
    : RangePanel(context, parent,
                 {{"frmLengRe", " 红球分期冷热统计", 1280, 760}, kStartSixtyDraws}) {
    cboFxqs_ = AddCombo(inputs(), "cboFxqs", QStringLiteral("分析最近"),
                        {"3", "5", "10", "30", "50", "100", kWholeHistory});
    AddRunButton({.name = "Command1",
                  .caption = "分期冷热统计",
                  .isDisabledInRun = true,
                  .staysAfterFailure = true,
                  .busyCaption = "统计中..."},
                 [this](Run& run) { return Rank(run); });
    GridView* vs1 = AddResults("Frame2", "分析结果");
    AddRemark([this] {
        return ControlTexts{{"cboFangFa", "冷热号码"},
                            {"cboFxqs", cboFxqs_->currentText().toStdString()}};
    });
    SetPopup(context, *vs1, "m_frmLengrePaiming", "排名分析",
             {{"m_frmLengren_fuzhi", "复制选中的号码", [vs1] { CopySelection(*vs1); }},
              {"m_frmlengre_hmpm", "该号排名分析", [this] { ShowCourse(); }}});
}

bool frmLengRe::Rank(Run& run) {
    const std::string window = cboFxqs_->currentText().toStdString();
    HeatOutcome outcome = BuildHeatRanking(session(), {range(), window}, run);
    if (Show(std::move(outcome.report)) && !outcome.failed) NameNumbers(HeatSources(window));
    return !outcome.failed;
}

void frmLengRe::ShowCourse() {
    const ResultGrid& grid = results().grid();
    const std::string& number = grid.cell(results().pressedRow(), results().pressedCol());
    if (!IsRedText(number)) {
        session().host.ShowMessage("该单元格不是红球号码，请在号码上点击右键！");
        return;
    }
    if (course_) course_->close();
    course_ = new frmLrHMfx(context(), grid, number, this);
    BringUp(*course_);
}

}  // namespace ssq
