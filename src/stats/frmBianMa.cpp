#include "stats/frmBianMa.h"

#include <QBoxLayout>
#include <QComboBox>

#include "stats/EdgeCodes.h"
#include "ui/qt/GridExport.h"
#include "ui/qt/GridView.h"
#include "ui/qt/form.h"

namespace ssq {

namespace {

constexpr int kRangeOpens = 28;  // entries below the newest issue

}  // namespace

frmBianMa::frmBianMa(const PanelContext& context, QWidget* parent)
    : RangePanel(context, parent,
                 {.form = {"frmBianMa", " 红球边码统计分析", 1200, 760},
                  .startEntry = kRangeOpens,
                  .drawsBefore = kFormulaDraws + 1}) {
    cboZtype_ = AddCombo(inputs(), "cboZtype", QStringLiteral("边码期数:"));
    for (int q = 1; q <= kFormulaDraws; ++q) {
        cboZtype_->addItem(QStringLiteral("上%1期边码").arg(q));
    }
    cboZtype_->addItem(QStringLiteral("期数汇总"));
    cboBN_ = AddCombo(inputs(), "CBOBN", QStringLiteral("边码间隔:"));
    for (int b = 1; b <= kFormulaOffsets; ++b) cboBN_->addItem(QString::number(b));
    cboBN_->addItem(QStringLiteral("间隔汇总"));
    cboBMXT_ = AddCombo(inputs(), "CBOBMXT", QStringLiteral("形态:"), {"左右", "左", "右"});
    cboHMSX_ = AddCombo(inputs(), "CBOHMSX", QStringLiteral("顺序:"), {"大小顺序", "出球顺序"});
    AddRunButton({"Command1", "分析"}, [this](Run&) { return Analyse(); });
    GridView* vs1 = AddResults("Frame2", "边码分析结果 此功能的间隔汇总和期数汇总分析胆码非常稳定");
    AddRemark();
    SetPopup(context, *vs1, "m_fzhm1", "复制号码1",
             {{"m_fzhm", "复制选中的号码", [vs1] { CopySelection(*vs1); }}},
             [this] { return !resultsCaption().contains(QStringLiteral("汇总")); });
}

bool frmBianMa::Analyse() {
    SetResultsCaption((cboZtype_->currentText() + QStringLiteral("--") + cboBN_->currentText() +
                       QStringLiteral("--") + cboBMXT_->currentText())
                          .toStdString());
    // The entries behind the last draw and the last offset ask for all of them. All draws come
    // first, so that with both the offset is the one behind the last.
    EdgeRequest request{.range = range(),
                        .q = cboZtype_->currentIndex() + 1,
                        .b = cboBN_->currentIndex() + 1,
                        .mode = static_cast<ShiftMode>(cboBMXT_->currentIndex()),
                        .drawnOrder = cboHMSX_->currentIndex() > 0};
    if (request.q > kFormulaDraws) {
        request.view = EdgeView::kBySource;
    } else if (request.b > kFormulaOffsets) {
        request.view = EdgeView::kByOffset;
    }
    return Show(BuildEdgeCodes(session(), request));
}

}  // namespace ssq
