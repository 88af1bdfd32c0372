#include "trial/frmMangCe.h"

#include <QBoxLayout>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSplitter>
#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

#include "base/numbers.h"
#include "base/text.h"
#include "draws/Public_var.h"
#include "tools/FormulaFiles.h"
#include "ui/Host.h"
#include "ui/Run.h"
#include "ui/qt/BandChart.h"
#include "ui/qt/GridExport.h"
#include "ui/qt/GridView.h"
#include "ui/qt/ProgressStrip.h"
#include "ui/qt/Qs.h"
#include "ui/qt/form.h"

namespace ssq {

namespace {

constexpr const char* kAll = "全部";
constexpr int kHundredDraws = 1;   // entry of cboN
constexpr int kUpperHeight = 420;  // pixels, where the panel has its own size
constexpr int kLowerHeight = 200;

// What the settings start with where none can be read.
constexpr int kUsualPeriods = 30;
constexpr int kThreeBankers = 2;  // entry of cboDMGS
constexpr int kTwelveKills = 1;   // entry of cboSmGs

constexpr const char* kStart = "开始盲测";
constexpr const char* kStop = "停止";

// The alternatives of TrialMethod.
enum MethodIndex { kBankers, kKills, kRedWrap, kBlueWrap, kSingle, kHeat, kOwn, kPlan };

// The one or two methods that show a control.
struct Shown {
    const char* control;
    MethodIndex method;
    MethodIndex other;
};
constexpr std::array kShown = {
    Shown{"txtXXQS", kBankers, kKills}, Shown{"cboDMGS", kBankers, kBankers},
    Shown{"cboSmGs", kKills, kKills},   Shown{"cboycGs", kKills, kKills},
    Shown{"txtGL", kKills, kKills},     Shown{"cboWhere", kSingle, kSingle},
    Shown{"CboNUM", kSingle, kSingle},  Shown{"cboFxqs", kSingle, kHeat},
    Shown{"optRe", kHeat, kHeat},       Shown{"optLeng", kHeat, kHeat},
    Shown{"txtK", kHeat, kHeat},        Shown{"lblGongShi", kOwn, kOwn},
    Shown{"optRed", kOwn, kOwn},        Shown{"optBLUE", kOwn, kOwn},
    Shown{"optDW", kOwn, kOwn},         Shown{"TxtMzs", kOwn, kOwn},
    Shown{"TxtMze", kOwn, kOwn},        Shown{"lblFangAn", kPlan, kPlan},
};

std::string TextOf(const QLineEdit& box) {
    return box.text().trimmed().toStdString();
}

// Options of one question among others of the same row.
void AddOptions(QHBoxLayout* row, std::initializer_list<std::pair<QRadioButton**, const char*>> all,
                std::initializer_list<const char*> captions) {
    auto* group = new QButtonGroup(row);
    const auto* caption = captions.begin();
    for (const auto& [option, name] : all) {
        *option = AddOption(row, name, QString::fromUtf8(*caption++));
        group->addButton(*option);
    }
    group->buttons().constFirst()->setChecked(true);
}

}  // namespace

frmMangCe::frmMangCe(const PanelContext& context, QWidget* parent)
    : Panel(context, parent, {"frmMangCe", "盲测：看看公式值多少", 1120, 760}) {
    auto* column = new QVBoxLayout(this);
    BuildConditions(column);
    progress_ = new ProgressStrip(QStringLiteral("正在盲测中......."));
    column->addWidget(progress_);
    BuildResults(column);
    auto* foot = new QLabel(QString::fromUtf8(kTrialFoot));
    foot->setWordWrap(true);
    column->addWidget(foot);
    LoadDefaults();
    ShowSettings();
}

void frmMangCe::BuildConditions(QBoxLayout* column) {
    settingsRow_ = AddRow(AddGroup(column, "Frame1", QStringLiteral("盲测条件")));
    cboFangFa_ = AddCombo(settingsRow_, "cboFangFa", QStringLiteral("方法:"));
    for (const char* method : kTrialMethods) cboFangFa_->addItem(QString::fromUtf8(method));
    connect(cboFangFa_, &QComboBox::currentIndexChanged, this, [this] { ShowSettings(); });
    BuildLearning(settingsRow_);
    BuildFormula(settingsRow_);
    BuildHeat(settingsRow_);
    BuildOwnFormulas(settingsRow_);
    plan_ = AddLabel(settingsRow_, "lblFangAn", {});
    cboN_ = AddCombo(settingsRow_, "cboN", QStringLiteral("盲测最近:"),
                     {"50期", "100期", "200期", "500期", "1000期", kAll});
    cboN_->setCurrentIndex(kHundredDraws);
    start_ =
        AddButton(settingsRow_, "Command1", QString::fromUtf8(kStart), [this] { StartOrStop(); });
    SetMainButton(start_);
}

void frmMangCe::BuildLearning(QHBoxLayout* row) {
    txtXXQS_ = AddTextBox(row, "txtXXQS", QStringLiteral("学习期数:"));
    cboDMGS_ =
        AddCombo(row, "cboDMGS", QStringLiteral("胆码个数:"), {"1胆", "2胆", "3胆", "4胆", "5胆"});
    cboSmGs_ = AddCombo(row, "cboSmGs", QStringLiteral("杀码个数:"),
                        {"杀6码", "杀12码", "杀18码", "杀24码"});
    cboycGs_ = AddCombo(row, "cboycGs", QStringLiteral("允许杀错:"), {"0", "1", "2", "3", "4"});
    txtGL_ = AddTextBox(row, "txtGL", QStringLiteral("杀对概率:"));
    for (QLineEdit* box : {txtXXQS_, txtGL_}) box->setMaximumWidth(60);
}

void frmMangCe::BuildFormula(QHBoxLayout* row) {
    cboWhere_ = AddCombo(row, "cboWhere", QStringLiteral("命中:"));
    for (const char* comparison : kComparisons) cboWhere_->addItem(QString::fromUtf8(comparison));
    cboNum_ = AddCombo(row, "CboNUM", {}, {"0", "1", "2", "3", "4"});
    cboNum_->setCurrentIndex(1);
}

void frmMangCe::BuildHeat(QHBoxLayout* row) {
    cboFxqs_ = AddFreeCombo(row, "cboFxqs", QStringLiteral("分析最近:"),
                            {"3", "5", "10", "30", "50", "100", kAll});
    cboFxqs_->setCurrentText(QString::fromUtf8(kAll));
    AddOptions(row, {{&optRe_, "optRe"}, {&optLeng_, "optLeng"}}, {"最热", "最冷"});
    txtK_ = AddTextBox(row, "txtK", QStringLiteral("号码个数:"));
    txtK_->setMaximumWidth(48);
    txtK_->setText(QStringLiteral("7"));
}

void frmMangCe::BuildOwnFormulas(QHBoxLayout* row) {
    formulas_ = AddLabel(row, "lblGongShi", {});
    AddOptions(row, {{&optRed_, "optRed"}, {&optBLUE_, "optBLUE"}, {&optDW_, "optDW"}},
               {"红球", "蓝球", "尾数"});
    txtMzs_ = AddTextBox(row, "TxtMzs", QStringLiteral("命中>=:"));
    txtMze_ = AddTextBox(row, "TxtMze", QStringLiteral("<="));
    for (QLineEdit* hits : {txtMzs_, txtMze_}) hits->setFixedWidth(48);
    txtMzs_->setText(QStringLiteral("1"));
    txtMze_->setText(QStringLiteral("6"));
}

void frmMangCe::BuildResults(QBoxLayout* column) {
    resultsGroup_ = AddGroup(column, "Frame2", QStringLiteral("盲测结果"));
    column->setStretchFactor(resultsGroup_, 1);
    auto* halves = new QSplitter(Qt::Vertical);
    halves->setChildrenCollapsible(false);
    resultsGroup_->layout()->addWidget(halves);

    auto* upper = new QWidget;
    auto* texts = new QVBoxLayout(upper);
    texts->setContentsMargins(0, 0, 0, 0);
    texts->addWidget(lblJieGuo_ = new QLabel);
    lblJieGuo_->setObjectName(QStringLiteral("lblJieGuo"));
    lblJieGuo_->setTextFormat(Qt::PlainText);
    lblJieGuo_->setWordWrap(true);
    lblJieGuo_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    chart_ = new BandChart;
    chart_->setObjectName(QStringLiteral("ZST"));
    texts->addWidget(chart_, 1);
    OfferPicture(context(), *chart_, [chart = chart_] { return chart->grab().toImage(); });
    auto* under = AddRow(texts);
    auto* scores = AddCheckBox(under, "cheLJ", QStringLiteral("看累计数"));
    connect(scores, &QCheckBox::toggled, this, [this](bool on) { chart_->ShowScores(on); });
    AddLabel(under, nullptr, QString::fromUtf8(kChartTip));
    halves->addWidget(upper);

    auto* lower = new QWidget;
    auto* grid = new QVBoxLayout(lower);
    grid->setContentsMargins(0, 0, 0, 0);
    vs1_ = AddGrid(context(), grid, "vs1");
    vs1_->SetEmptyHint(QStringLiteral("还没有盲测结果。"), QStringLiteral("点此") + start_->text(),
                       [this] { start_->click(); });
    SetPopup(context(), *vs1_, "m_mangce_bg", "盲测表格",
             {{"m_mangce_fz", "复制选中的号码", [this] { CopySelection(*vs1_); }},
              {"m_mangce_dc", "导出", [this] { SaveGridAsExcel(context(), *vs1_); }}},
             [this] { return vs1_->grid().rows() >= 2; });
    halves->addWidget(lower);
    halves->setStretchFactor(0, 2);
    halves->setStretchFactor(1, 1);
    halves->setSizes({kUpperHeight, kLowerHeight});
}

// A store that cannot be read is told of once.
void frmMangCe::LoadDefaults() {
    periods_[kBankers] = QString::number(kUsualPeriods);
    cboDMGS_->setCurrentIndex(kThreeBankers);
    const KillProposal proposal = DefaultKillSettings(kTwelveKills);
    periods_[kKills] = QString::number(kDefaultKillDraws);
    cboSmGs_->setCurrentIndex(kTwelveKills);
    cboycGs_->setCurrentIndex(proposal.rcSelected);
    txtGL_->setText(Qs(proposal.rateText));
    const auto bankers = ReadBankerSettings(session());
    if (!bankers) return;
    periods_[kBankers] = QString::number(bankers->xxqs);
    cboDMGS_->setCurrentIndex(bankers->dmgs - 1);
    const auto kills = ReadKillSettings(session());
    if (!kills) return;
    periods_[kKills] = QString::number(kills->xxqs);
    cboSmGs_->setCurrentIndex(kills->dmgs);
    cboycGs_->setCurrentIndex(kills->rc);
    txtGL_->setText(Qs(NumberText(kills->setRate)));
}

void frmMangCe::TakeSettings(const ControlTexts& settings) {
    const auto take = [this](const std::string& name, const QString& text) {
        auto* control = findChild<QWidget*>(Qs(name));
        if (auto* box = qobject_cast<QLineEdit*>(control)) box->setText(text);
        if (auto* option = qobject_cast<QRadioButton*>(control)) option->setChecked(true);
        auto* combo = qobject_cast<QComboBox*>(control);
        // Sets a fixed list only to what it has.
        if (combo) combo->setCurrentText(text);
    };
    // The method first, as others stand for it alone.
    const auto method = settings.find("cboFangFa");
    if (method != settings.end()) take(method->first, Qs(method->second));
    for (const auto& [name, text] : settings) take(name, Qs(text));
}

void frmMangCe::ShowSettings() {
    // Both learners have a number of draws, each its own.
    if (periods_.contains(shownMethod_)) periods_[shownMethod_] = txtXXQS_->text();
    shownMethod_ = cboFangFa_->currentIndex();
    if (periods_.contains(shownMethod_)) txtXXQS_->setText(periods_[shownMethod_]);
    for (const Shown& shown : kShown) {
        const bool isShown = shownMethod_ == shown.method || shownMethod_ == shown.other;
        auto* control = findChild<QWidget*>(QString::fromUtf8(shown.control));
        control->setVisible(isShown);
        for (int at = 0; at < settingsRow_->count(); ++at) {
            auto* label = qobject_cast<QLabel*>(settingsRow_->itemAt(at)->widget());
            if (label && label->buddy() == control) label->setVisible(isShown);
        }
    }
    ShowSources();
}

void frmMangCe::ShowSources() {
    if (shownMethod_ == kOwn) {
        const auto formulas = LoadFormulaList(session()).value_or(std::vector<std::string>());
        formulas_->setText(QStringLiteral("已存公式 %1 条").arg(formulas.size()));
        formulas_->setToolTip(Qs(Join(formulas, "\n")));
    }
    if (shownMethod_ == kPlan) {
        const std::string plan = StandingPlan();
        plan_->setText(
            plan.empty()
                ? QStringLiteral("选号台里还没有方案")
                : QStringLiteral("选号台里的方案，共 %1 行").arg(Split(plan, "\n").size()));
        plan_->setToolTip(Qs(plan));
    }
}

std::string frmMangCe::StandingPlan() const {
    return context().standingPlan ? Trim(context().standingPlan()) : std::string();
}

bool frmMangCe::Refuse(const std::string& fault) const {
    if (!fault.empty()) session().host.ShowMessage(fault);
    return !fault.empty();
}

std::optional<int> frmMangCe::Window() const {
    const std::string text = Trim(cboFxqs_->currentText().toStdString());
    if (text == kAll) return kAllDraws;
    const std::int64_t draws = IsNumeric(text) ? WholePart(text) : 0;
    // 0 stands for all of them elsewhere.
    if (draws < 1) {
        Refuse("分析期数填写错误！");
        return std::nullopt;
    }
    return ToInt(draws);
}

FormulaTarget frmMangCe::Target() const {
    if (optBLUE_->isChecked()) return FormulaTarget::kBlue;
    return optDW_->isChecked() ? FormulaTarget::kTail : FormulaTarget::kRed;
}

std::optional<TrialMethod> frmMangCe::Bankers() const {
    const int dmgs = cboDMGS_->currentIndex() + 1;
    const std::string periods = TextOf(*txtXXQS_);
    if (Refuse(BankerSettingsFault(periods, dmgs))) return std::nullopt;
    return BankerSettings{static_cast<int>(WholePart(periods)), dmgs};
}

std::optional<TrialMethod> frmMangCe::Kills() const {
    const int dmgs = cboSmGs_->currentIndex();
    const std::string periods = TextOf(*txtXXQS_);
    const std::string rate = TextOf(*txtGL_);
    if (Refuse(KillSettingsFault(periods, rate, dmgs))) return std::nullopt;
    return KillSettings{ToInt(WholePart(periods)), dmgs, std::max(cboycGs_->currentIndex(), 0),
                        ParseNumber(rate).value_or(0)};
}

std::optional<TrialMethod> frmMangCe::SingleFormula() const {
    const auto window = Window();
    if (!window) return std::nullopt;
    return SingleFormulaTrial{
        {cboWhere_->currentText().toStdString(), cboNum_->currentText().toInt()}, *window};
}

std::optional<TrialMethod> frmMangCe::Heat() const {
    const auto window = Window();
    if (!window) return std::nullopt;
    const std::string numbers = TextOf(*txtK_);
    if (!IsNumeric(numbers)) {
        Refuse("号码个数只能为数字！");
        return std::nullopt;
    }
    return HeatTrial{*window, ToInt(WholePart(numbers)), optLeng_->isChecked()};
}

std::optional<TrialMethod> frmMangCe::OwnFormulas() const {
    const std::string low = TextOf(*txtMzs_);
    const std::string high = TextOf(*txtMze_);
    if (!CheckRange(session().host, low, high)) return std::nullopt;
    const auto formulas = LoadFormulaList(session());
    if (!formulas) return std::nullopt;
    return OwnFormulasTrial{*formulas, Target(), ParseNumber(low).value_or(0),
                            ParseNumber(high).value_or(0)};
}

std::optional<TrialMethod> frmMangCe::Method() const {
    switch (cboFangFa_->currentIndex()) {
        case kBankers:
            return Bankers();
        case kKills:
            return Kills();
        case kRedWrap:
            return RedWrapTrial{};
        case kBlueWrap:
            return BlueWrapTrial{};
        case kSingle:
            return SingleFormula();
        case kHeat:
            return Heat();
        case kOwn:
            return OwnFormulas();
        default:
            return PlanTrial{StandingPlan()};
    }
}

std::optional<TrialSettings> frmMangCe::Settings() const {
    auto method = Method();
    if (!method) return std::nullopt;
    const QString draws = cboN_->currentText();
    TrialSettings settings{std::move(*method),
                           draws == QString::fromUtf8(kAll) ? kAllDraws : draws.chopped(1).toInt()};
    if (Refuse(TrialFault(settings))) return std::nullopt;
    return settings;
}

void frmMangCe::StartOrStop() {
    if (isRunning_) {
        // The newest run takes the place of the one under way, and does nothing.
        Perform({.strip = progress_}, [](Run&) { return true; });
        return;
    }
    ShowSources();
    const auto settings = Settings();
    if (!settings) return;
    // Also after an exception in mid-run.
    struct Running {
        explicit Running(frmMangCe& panel) : panel_(panel) { Set(true); }
        ~Running() { Set(false); }
        void Set(bool on) {
            panel_.isRunning_ = on;
            panel_.start_->setText(QString::fromUtf8(on ? kStop : kStart));
            if (!on) panel_.progress_->End();
        }
        frmMangCe& panel_;
    };
    const Running running(*this);
    Perform({.strip = progress_}, [&](Run& run) { return Test(*settings, run); });
}

bool frmMangCe::Test(const TrialSettings& settings, Run& run) {
    auto result = RunBlindTest(session(), settings, run);
    if (!result || !run.goesOn()) return false;
    const bool isJudged = result->sums.front().tally.draws > 0;
    if (isJudged && std::ranges::find(tested_, settings) == tested_.end()) {
        tested_.push_back(settings);
    }
    ShowResult(std::move(*result));
    return true;
}

void frmMangCe::ShowResult(TrialResult result) {
    resultsGroup_->setTitle(Qs(result.caption));
    std::string lines = Join(result.lines, "\n");
    const std::string many = ManyTestsLine(static_cast<int>(tested_.size()));
    if (!many.empty()) lines += "\n" + many;
    lblJieGuo_->setText(Qs(lines));
    DrawCourses(result);
    vs1_->SetGrid(std::move(result.grid));
    vs1_->verticalScrollBar()->setValue(vs1_->verticalScrollBar()->maximum());
}

void frmMangCe::DrawCourses(const TrialResult& result) {
    BandChartData data;
    bool allCount = true;
    bool noneCounts = true;
    for (std::size_t index = 0; index < result.tracks.size(); ++index) {
        const TrialTrack& track = result.tracks[index];
        (track.counts ? noneCounts : allCount) = false;
        BandTrack course;
        course.name = track.name;
        data.labels.clear();
        for (const CoursePoint& point : CourseOf(result, index)) {
            data.labels.push_back(result.rows[point.row].issue + "期");
            course.score.push_back(point.tally.score);
            course.expected.push_back(point.tally.mean);
            course.reach.push_back(LuckBand(point.tally).high - point.tally.mean);
        }
        data.tracks.push_back(std::move(course));
    }
    if (noneCounts) data.unit = "期";
    if (allCount) data.unit = "个";
    chart_->Show(std::move(data));
}

}  // namespace ssq
