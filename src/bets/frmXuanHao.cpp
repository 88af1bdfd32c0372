#include "bets/frmXuanHao.h"

#include <QBoxLayout>
#include <QClipboard>
#include <QCloseEvent>
#include <QComboBox>
#include <QGroupBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTimer>
#include <algorithm>
#include <utility>

#include "base/charset.h"
#include "base/files.h"
#include "base/numbers.h"
#include "base/text.h"
#include "bets/BetCheck.h"
#include "bets/BetFilter.h"
#include "bets/BetTables.h"
#include "bets/PlanBoard.h"
#include "draws/Public_var.h"
#include "ui/Host.h"
#include "ui/TextFile.h"
#include "ui/qt/BallBoard.h"
#include "ui/qt/Desktop.h"
#include "ui/qt/GridExport.h"
#include "ui/qt/GridView.h"
#include "ui/qt/IssueCombo.h"
#include "ui/qt/NumberedEdit.h"
#include "ui/qt/Qs.h"
#include "ui/qt/form.h"
#include "ui/qt/look.h"

namespace ssq {

namespace {

constexpr int kPauseMs = 120;                  // from the last key to the computation
constexpr int kPlanWidth = 510;                // pixels
constexpr int kErrorsHeight = 42;              // pixels, two lines
constexpr int kHistoryHeight = 212;            // pixels
constexpr QSize kLeastSize(1240, 620);         // pixels; a smaller window scrolls
constexpr std::size_t kLargestPlan = 1 << 20;  // bytes; a longer file is no plan
constexpr const char* kAllDraws = "全部";
constexpr const char* kAscending = "升序";

void SetStretch(QBoxLayout* layout, QWidget* widget, int stretch) {
    layout->setStretchFactor(widget, stretch);
}

BallBoard::Look::Kind KindOf(BallState state) {
    switch (state) {
        case BallState::kBanker:
            return BallBoard::Look::kBanker;
        case BallState::kPool:
            return BallBoard::Look::kPool;
        case BallState::kKilled:
            return BallBoard::Look::kKilled;
        default:
            return BallBoard::Look::kPlain;
    }
}

// How a ball looks with the results that name it: how many are for it, how many against.
BallBoard::Look LookOf(const std::vector<TakenResult>& results, bool isBlue, int number,
                       BallBoard::Look::Kind kind) {
    QStringList names[2];
    for (const TakenResult& result : results) {
        if (result.isBlue == isBlue && result.numbers.Has(number)) {
            names[result.isAgainst ? 1 : 0].append(Qs(result.name));
        }
    }
    BallBoard::Look look{kind, {}, {}};
    const auto add = [&look](const QStringList& who, const char* sign, const char* told) {
        if (who.isEmpty()) return;
        look.note += QString::fromUtf8(sign) + QString::number(who.size());
        if (!look.tip.isEmpty()) look.tip += u'\n';
        look.tip += QString::fromUtf8(told) + who.join(QStringLiteral("、"));
    };
    add(names[0], "+", "看好：");
    add(names[1], "-", "看淡：");
    return look;
}

void ShowLastRows(GridView& view) {
    view.verticalScrollBar()->setValue(view.verticalScrollBar()->maximum());
}

}  // namespace

frmXuanHao::frmXuanHao(const PanelContext& context, QWidget* parent)
    : Panel(context, parent, {"frmXuanHao", " 选号台", 1340, 720}) {
    auto* content = new QWidget;
    content->setMinimumSize(kLeastSize);
    auto* scroll = new QScrollArea;
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidget(content);
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(scroll);
    auto* column = new QVBoxLayout(content);
    BuildTop(column);
    auto* middle = new QHBoxLayout;
    column->addLayout(middle, 1);
    BuildPlan(middle);
    BuildBets(middle);
    BuildHistory(column);

    typing_ = new QTimer(this);
    typing_->setSingleShot(true);
    typing_->setInterval(kPauseMs);
    connect(typing_, &QTimer::timeout, this, [this] { Compute(); });
    connect(txtFangAn_, &QPlainTextEdit::textChanged, typing_, [this] { typing_->start(); });
    Load();
    connect(cboShangQi_, &QComboBox::currentTextChanged, typing_, [this] { typing_->start(); });
    txtFangAn_->setFocus();
}

void frmXuanHao::BuildTop(QVBoxLayout* column) {
    auto* row = AddRow(column);
    cboShangQi_ = AddIssueCombo(row, "cboShangQi", QStringLiteral("上期:"));
    SetMainButton(AddButton(row, "Command1", QStringLiteral("计算"), [this] { Compute(); }));
    AddButton(row, "Command7", QStringLiteral("取入结果"), [this] { TakeIn(); })
        ->setToolTip(QStringLiteral(
            "取入胆码公式、杀码公式、围红、围蓝、冷热号、自助公式、走势图自选号和剪贴板里的条件"));
    AddButton(row, "Command3", QStringLiteral("打开方案"), [this] { OpenPlan(); });
    AddButton(row, "Command2", QStringLiteral("保存方案"), [this] { SavePlan(); });
    row->addWidget(new QLabel(QStringLiteral("剩余组合:")));
    row->addWidget(LBLSY_ = new QLabel);
    LBLSY_->setObjectName(QStringLiteral("LBLSY"));
    row->addSpacing(24);
    row->addWidget(new QLabel(QStringLiteral("金额(元):")));
    row->addWidget(LBLJE_ = new QLabel);
    LBLJE_->setObjectName(QStringLiteral("LBLJE"));
    for (QLabel* label : {LBLSY_, LBLJE_}) {
        QFont font = label->font();
        font.setBold(true);
        font.setPointSizeF(font.pointSizeF() * 1.4);
        label->setFont(font);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
        label->setMinimumWidth(QFontMetrics(font).horizontalAdvance(QStringLiteral("99999999")));
    }
}

void frmXuanHao::BuildPlan(QHBoxLayout* middle) {
    QGroupBox* plan = AddGroup(middle, "Frame1", QStringLiteral("方案（每行一个条件）"));
    plan->setMinimumWidth(kPlanWidth);
    auto* column = static_cast<QVBoxLayout*>(plan->layout());
    txtFangAn_ = new NumberedEdit;
    txtFangAn_->setObjectName(QStringLiteral("txtFangAn"));
    txtFangAn_->setPlaceholderText(
        QStringLiteral("红球 01-20 22 25 28\n胆码 05\n蓝球 03,11\n容错 2\n"
                       "03,07,12,15,20,31/0~1\n!01-11/1~3\n和值 80~120\n三区比 2:2:2 3:2:1"));
    column->addWidget(txtFangAn_, 1);
    LBLcuo_ = new QLabel;
    LBLcuo_->setObjectName(QStringLiteral("LBLcuo"));
    LBLcuo_->setTextFormat(Qt::PlainText);
    LBLcuo_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    LBLcuo_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    QPalette inks = LBLcuo_->palette();
    inks.setColor(QPalette::WindowText, FaultInk(inks));
    LBLcuo_->setPalette(inks);
    auto* errors = new QScrollArea;
    errors->setWidget(LBLcuo_);
    errors->setWidgetResizable(true);
    errors->setFrameShape(QFrame::NoFrame);
    errors->setFixedHeight(kErrorsHeight);
    column->addWidget(errors);
    board_ = new BallBoard;
    board_->onRed = [this](int red) { TakePlan(PressRed(txtFangAn_->Text(), red)); };
    board_->onBlue = [this](int blue) { TakePlan(PressBlue(txtFangAn_->Text(), blue)); };
    column->addWidget(board_);

    QGroupBox* conditions = AddGroup(middle, "Frame2", QStringLiteral("各条件单独符合的组合"));
    vs2_ = AddGrid(context(), conditions, "vs2");
    SetStretch(middle, plan, 4);
    SetStretch(middle, conditions, 3);
}

void frmXuanHao::BuildBets(QHBoxLayout* middle) {
    betsGroup_ = AddGroup(middle, "Frame3", QStringLiteral("注单"));
    SetStretch(middle, betsGroup_, 4);
    auto* row = AddRow(betsGroup_);
    cboPaixu_ = AddCombo(row, "cboPaixu", QStringLiteral("排序:"), {kAscending});
    for (const BetAttribute& attribute : BetAttributes()) {
        cboPaixu_->addItem(Qs(std::string(attribute.name)));
    }
    connect(cboPaixu_, &QComboBox::currentIndexChanged, this, [this] { Order(); });
    cboYe_ = AddCombo(row, "cboYe", QStringLiteral("页:"));
    cboYe_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    cboYe_->setMinimumContentsLength(4);
    connect(cboYe_, &QComboBox::currentIndexChanged, this, [this] { ShowPage(); });
    AddButton(row, "Command4", QStringLiteral("复制注单"), [this] { CopyBets(); });
    AddButton(row, "Command5", QStringLiteral("保存注单"), [this] { SaveBets(); });
    auto* picks = AddRow(betsGroup_);
    txtN_ = AddTextBox(picks, "txtN", QStringLiteral("注数:"));
    txtN_->setText(QStringLiteral("10"));
    SetMainButtonOf(txtN_, AddButton(picks, "Command6", QStringLiteral("随机取注"),
                                     [this] { TakeAtRandom(); }));
    vs1_ = AddGrid(context(), betsGroup_, "vs1");
}

void frmXuanHao::BuildHistory(QVBoxLayout* column) {
    historyGroup_ = AddGroup(column, "Frame4", QStringLiteral("历史验证"));
    historyGroup_->setFixedHeight(kHistoryHeight);
    auto* row = AddRow(historyGroup_);
    cboYZ_ = AddCombo(row, "cboYZ", QStringLiteral("验证期数:"),
                      {"50", "100", "300", "1000", kAllDraws});
    cboYZ_->setCurrentIndex(1);
    connect(cboYZ_, &QComboBox::currentIndexChanged, this, [this] {
        if (plan_) Perform({}, [this](Run& run) { return CheckPast(run); });
    });
    vs3_ = AddGrid(context(), historyGroup_, "vs3");
}

void frmXuanHao::Load() {
    FillIssueCombo(context(), *cboShangQi_);
    ReadHistory();
    Compute();
}

void frmXuanHao::ReadHistory() {
    if (auto draws = ReadAllDraws(session())) draws_ = std::move(*draws);
    historyGroup_->setTitle(
        draws_.empty()
            ? QStringLiteral("历史验证（还没有开奖数据，请先更新开奖数据；重号和边号按0计算）")
            : QStringLiteral("历史验证"));
}

void frmXuanHao::TakeNewDraws() {
    RefillIssueCombos(context(), {cboShangQi_});
    ReadHistory();
    resultsAfter_.reset();
    Compute();
}

void frmXuanHao::AddConditions(const std::string& lines) {
    std::string text = txtFangAn_->Text();
    if (!text.empty() && text.back() != '\n') text += '\n';
    TakePlan(text + Replace(lines, "\r\n", "\n"));
}

std::string frmXuanHao::plan() const {
    return txtFangAn_->Text();
}

void frmXuanHao::closeEvent(QCloseEvent* event) {
    const bool asks = !isClosed() && !session().host.stopping() &&
                      txtFangAn_->document()->isModified() && !txtFangAn_->document()->isEmpty();
    if (asks && !context().desktop.Confirm(QStringLiteral(" 选号台"),
                                           QStringLiteral("方案还没有保存，确定关闭吗？"))) {
        event->ignore();
        return;
    }
    typing_->stop();
    Panel::closeEvent(event);
}

void frmXuanHao::Compute() {
    typing_->stop();
    Perform({}, [this](Run& run) { return Count(run) && CheckPast(run); });
}

std::span<const Draw> frmXuanHao::DrawsToPrevious() const {
    const auto end = std::ranges::upper_bound(draws_, cboShangQi_->issue(), {}, &Draw::issue);
    return {draws_.begin(), end};
}

std::optional<RedSet> frmXuanHao::Previous() const {
    const std::string issue = cboShangQi_->issue();
    if (issue.empty()) return RedSet();
    const std::span<const Draw> draws = DrawsToPrevious();
    if (draws.empty() || draws.back().issue != issue) return std::nullopt;
    return draws.back().set;
}

void frmXuanHao::ReadResults() {
    resultsAfter_ = cboShangQi_->issue();
    results_.clear();
    if (!Previous() || resultsAfter_->empty()) return;
    const NumbersAtHand none;
    const NumbersAtHand& atHand = context().atHand ? *context().atHand : none;
    results_ = TakeResults(NumberSources(session(), atHand), DrawsToPrevious());
}

// Other panels may have found something meanwhile.
void frmXuanHao::changeEvent(QEvent* event) {
    Panel::changeEvent(event);
    if (event->type() != QEvent::ActivationChange || !isActiveWindow() || isClosed()) return;
    ReadResults();
    ShowBoard(ReadBetPlan(txtFangAn_->Text()).plan);
}

void frmXuanHao::TakeIn() {
    ReadResults();
    std::vector<std::string> lines;
    for (const TakenResult& result : results_) lines.push_back(result.line);
    const QString clipboard = QGuiApplication::clipboard()->text();
    if (static_cast<std::size_t>(clipboard.size()) <= kLargestPlan) {
        const auto conditions =
            TakeConditions(clipboard.toStdString(), DrawsToPrevious(), columns_);
        lines.insert(lines.end(), conditions.begin(), conditions.end());
    }
    if (lines.empty()) {
        session().host.ShowMessage("没有可以取入的结果！");
        return;
    }
    TakePlan(WithTaken(txtFangAn_->Text(), lines));
}

bool frmXuanHao::Count(Run& run) {
    BetPlanReading reading = ReadBetPlan(txtFangAn_->Text());
    const std::optional<RedSet> previous = Previous();
    if (resultsAfter_ != cboShangQi_->issue()) ReadResults();
    std::vector<std::string> told;
    std::map<int, QString> marks;
    if (!previous) told.push_back("上期：没有" + cboShangQi_->issue() + "期的开奖号码！");
    for (const BetPlanError& error : reading.errors) {
        told.push_back(error.Told());
        marks[error.line] = Qs(error.text);
    }
    txtFangAn_->MarkLines(std::move(marks));
    ShowErrors(told);
    ShowBoard(reading.plan);
    if (!told.empty()) {
        ShowNothing();
        return false;
    }

    // Nothing is shown before the last step, so that a run overtaken meanwhile leaves no trace.
    constexpr int kSteps = 3;
    const BetFilter filter(reading.plan, *previous, columns_);
    if (!run.SlowStep(1, kSteps)) return false;
    const std::vector<std::int32_t> meeting = filter.CountByCondition();
    if (!run.SlowStep(2, kSteps)) return false;
    remaining_ = BetList(filter.Remaining().Places());
    plan_ = std::move(reading.plan);
    previous_ = *previous;
    const auto count = static_cast<std::int64_t>(remaining_.size());
    LBLSY_->setText(QString::number(count));
    LBLJE_->setText(QString::number(plan_->Cost(count)));
    vs2_->Edit([&](ResultGrid& grid) { grid = ConditionTable(*plan_, meeting); });
    betsGroup_->setTitle(QStringLiteral("注单"));
    shown_ = remaining_;
    Order();
    return run.SlowStep(kSteps, kSteps);
}

void frmXuanHao::ShowErrors(const std::vector<std::string>& told) {
    QStringList lines;
    for (const std::string& text : told) lines.append(Qs(text));
    LBLcuo_->setText(lines.join(u'\n'));
    ShowHints(!told.empty());
}

void frmXuanHao::ShowHints(bool hasErrors) {
    const QString back = QStringLiteral("点此回到方案");
    const auto goBack = [this] { txtFangAn_->setFocus(); };
    if (hasErrors) {
        for (GridView* view : {vs1_, vs2_, vs3_}) {
            view->SetEmptyHint(QStringLiteral("方案有错，改正后才有结果。"), back, goBack);
        }
        return;
    }
    vs1_->SetEmptyHint(QStringLiteral("没有可显示的注。"), back, goBack);
    vs2_->SetEmptyHint(QStringLiteral("方案里还没有条件。"), QStringLiteral("点此取入结果"),
                       [this] { TakeIn(); });
    vs3_->SetEmptyHint(QStringLiteral("还没有验证结果。"), QStringLiteral("点此计算"),
                       [this] { Compute(); });
}

void frmXuanHao::ShowNothing() {
    plan_.reset();
    remaining_ = {};
    shown_ = {};
    LBLSY_->clear();
    LBLJE_->clear();
    vs2_->SetGrid(ConditionTable({}, {}));
    vs3_->SetGrid(HistoryTable({}, {}, {}, 0));
    betsGroup_->setTitle(QStringLiteral("注单"));
    ShowList();
}

void frmXuanHao::ShowBoard(const BetPlan& plan) {
    for (int red = 1; red <= kReds; ++red) {
        board_->SetRed(red, LookOf(results_, false, red, KindOf(RedState(plan, red))));
    }
    for (int blue = 1; blue <= kBlues; ++blue) {
        const bool chosen = std::ranges::binary_search(plan.blues, blue);
        board_->SetBlue(blue, LookOf(results_, true, blue,
                                     chosen ? BallBoard::Look::kBlue : BallBoard::Look::kPlain));
    }
}

void frmXuanHao::TakePlan(const std::string& text) {
    txtFangAn_->ChangeTo(text);
    Compute();
}

bool frmXuanHao::CheckPast(Run& run) {
    const QString wished = cboYZ_->currentText();
    const std::size_t count = wished == QString::fromUtf8(kAllDraws)
                                  ? draws_.size()
                                  : std::min<std::size_t>(wished.toUInt(), draws_.size());
    std::vector<RedSet> sets;
    sets.reserve(draws_.size());
    for (const Draw& draw : draws_) sets.push_back(draw.set);
    const auto history = CheckHistory(
        *plan_, sets, count, [&run](double done, double total) { return run.Step(done, total); });
    if (!history || !run.SlowStep(1, 1)) return false;
    vs3_->SetGrid(HistoryTable(*plan_, std::span(draws_).last(count), *history,
                               static_cast<std::int32_t>(remaining_.size())));
    ShowLastRows(*vs3_);
    return true;
}

void frmXuanHao::Order() {
    const int attribute = cboPaixu_->currentIndex() - 1;
    if (attribute < 0) {
        shown_.SortByPlace();
    } else if (shown_.size() > 0) {
        shown_.SortBy(columns_.Of(attribute, previous_));
    }
    ShowList();
}

void frmXuanHao::ShowList() {
    const int pages = static_cast<int>(shown_.PageCount());
    const QSignalBlocker quiet(cboYe_);
    for (int page = cboYe_->count(); page < pages; ++page) {
        cboYe_->addItem(QString::number(page + 1));
    }
    while (cboYe_->count() > pages) cboYe_->removeItem(cboYe_->count() - 1);
    cboYe_->setCurrentIndex(pages > 0 ? 0 : -1);
    ShowPage();
}

void frmXuanHao::ShowPage() {
    const auto page = static_cast<std::size_t>(std::max(cboYe_->currentIndex(), 0));
    vs1_->SetGrid(BetPageTable(plan_.value_or(BetPlan()), shown_.Page(page),
                               page * BetList::kPageSize + 1, previous_));
}

void frmXuanHao::TakeAtRandom() {
    const std::string text = txtN_->text().trimmed().toStdString();
    const std::int64_t wished = IsNumeric(text) ? WholePart(text) : 0;
    if (wished < 1) {
        session().host.ShowMessage("请输入要取的注数！");
        return;
    }
    if (typing_->isActive()) Compute();
    if (!HasBets()) return;
    shown_ = BetList(remaining_.PickAtRandom(static_cast<std::size_t>(wished), random_));
    betsGroup_->setTitle(QStringLiteral("注单（从%1注中随机取%2注，%3元，再计算则恢复全部）")
                             .arg(remaining_.size())
                             .arg(shown_.size())
                             .arg(plan_->Cost(static_cast<std::int64_t>(shown_.size()))));
    Order();
}

std::string frmXuanHao::AskFile(const QString& pattern) {
    return AskFileToWrite(context(), {pattern, QStringLiteral(".txt")}).toStdString();
}

bool frmXuanHao::WriteFile(const std::string& file, const std::string& text) {
    if (!WriteTextFile(session().host, file, text)) return false;
    TellSaved(context(), Qs(file), true, {});
    return true;
}

void frmXuanHao::SavePlan() {
    const std::string file = AskFile(QStringLiteral("*.txt"));
    if (file.empty() || !WriteFile(file, txtFangAn_->Text())) return;
    txtFangAn_->document()->setModified(false);
}

void frmXuanHao::OpenPlan() {
    const QString name =
        context().desktop.AskOpenFile(QStringLiteral("打开文件"), {}, QStringLiteral("*.txt"));
    if (name.trimmed().isEmpty() || session().host.stopping()) return;
    std::string errorText;
    const auto bytes = ReadFile(name.toStdString(), kLargestPlan, errorText);
    if (!bytes) {
        session().host.ShowMessage("打不开文件！" + errorText);
        return;
    }
    const auto text = DecodeTextFile(*bytes);
    if (!text) {
        session().host.ShowMessage("这不是方案文件，方案是UTF-8编码的文本！");
        return;
    }
    TakePlan(*text);
    txtFangAn_->document()->setModified(false);
}

bool frmXuanHao::HasBets() {
    if (remaining_.size() > 0) return true;
    session().host.ShowMessage(plan_ ? "没有剩余的注！" : "方案有错，请先改正！");
    return false;
}

void frmXuanHao::CopyBets() {
    if (typing_->isActive()) Compute();
    if (!HasBets()) return;
    PutOnClipboard(BetsAsText(shown_.Shown(), plan_->blues));
}

void frmXuanHao::SaveBets() {
    if (typing_->isActive()) Compute();
    if (!HasBets()) return;
    const std::string file = AskFile(QStringLiteral("*.txt;;*.csv"));
    if (file.empty() || !plan_) return;
    const bool asCsv = Qs(file).endsWith(QStringLiteral(".csv"), Qt::CaseInsensitive);
    WriteFile(file, asCsv ? BetsAsCsv(shown_.Shown(), plan_->blues)
                          : BetsAsText(shown_.Shown(), plan_->blues));
}

}  // namespace ssq
