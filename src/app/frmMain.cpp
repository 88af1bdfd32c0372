#include "app/frmMain.h"

#include <QApplication>
#include <QBoxLayout>
#include <QCloseEvent>
#include <QGroupBox>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QStatusBar>

#include "app/MDL_UPDATE.h"
#include "app/frmMainMenu.h"
#include "app/frmMainPanels.h"
#include "banker/Recommendation.h"
#include "banker/fenXi.h"
#include "banker/frmxxjl.h"
#include "base/text.h"
#include "draws/BankerSettings.h"
#include "draws/Public_var.h"
#include "ui/Host.h"
#include "ui/qt/ChanceRemark.h"
#include "ui/qt/Desktop.h"
#include "ui/qt/GridView.h"
#include "ui/qt/IssueCombo.h"
#include "ui/qt/ProgressStrip.h"
#include "ui/qt/Qs.h"
#include "ui/qt/form.h"
#include "ui/qt/keys.h"
#include "ui/qt/manual.h"
#include "ui/qt/placing.h"

namespace ssq {

frmMain::frmMain(const PanelContext& context)
    : context_(context),
      panels_(std::make_unique<PanelRegistry>(WithStatusBar(), *this)),
      learnRuns_(context.session.host),
      updates_(context.session, {[this](const std::string& text) { TellUpdate(text); },
                                 [this] { TakeNewDraws(); }}) {
    BuildControls();
    BuildMenus();
    Load();
}

frmMain::~frmMain() = default;

// What the panels are given: they tell how an update goes, and when the line of the learning mode
// is to be shown anew.
PanelContext frmMain::WithStatusBar() {
    PanelContext context = context_;
    context.tellStatus = [this](const std::string& text) { TellUpdate(text); };
    context.onBankerSettings = [this] { ShowLearningMode(ReadBankerSettings(context_.session)); };
    return context;
}

void frmMain::BuildControls() {
    const Deployment& deployment = context_.session.deployment;
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(Qs(deployment.productName + " " + deployment.version));
    FitOrMaximize(*this, {1180, 760});

    auto* centre = new QWidget;
    auto* column = new QVBoxLayout(centre);
    setCentralWidget(centre);

    auto* query = AddRow(AddGroup(column, "Frame2", {}));
    start_ = AddIssueCombo(query, "cboSdate", QStringLiteral("开始期号:"), "Label1");
    end_ = AddIssueCombo(query, "cboEdate", QStringLiteral("结束期号:"), "Label2");
    AddPeriodMenu(query, *start_, *end_);
    recommendButton_ =
        AddButton(query, "Command1", QStringLiteral("胆码推荐"), [this] { Recommend(); });
    recommendButton_->setDefault(true);
    AddButton(query, "Command3", QStringLiteral("购买彩票"), [this] { BuyTickets(); });
    AddButton(query, "cmdXuanHao", QStringLiteral("选号台"),
              [this] { panels_->Open(QStringLiteral("frmXuanHao")); });
    updateAll_ =
        AddButton(query, "cmdUpdateAll", QStringLiteral("全部更新"), [this] { UpdateAll(); });

    progress_ = new ProgressStrip(QStringLiteral("正在学习中......."));
    column->addWidget(progress_);

    resultGroup_ = AddGroup(column, "Frame1", QStringLiteral("分析结果"));
    vs1_ = AddGrid(context_, resultGroup_, "vs1");
    vs1_->SetEmptyHint(QStringLiteral("还没有结果。"), QStringLiteral("点此开始学习"),
                       [this] { Learn(); });
    resultGroup_->layout()->addWidget(remark_ = new ChanceRemark(panels_->context()));

    statusBar()->setObjectName(QStringLiteral("bar1"));
    for (int panel = 0; panel < 3; ++panel) {
        statusPanels_[panel] = new QLabel;
        statusPanels_[panel]->setTextFormat(Qt::PlainText);
        statusPanels_[panel]->setObjectName(QStringLiteral("panel%1").arg(panel + 1));
        statusBar()->addWidget(statusPanels_[panel], panel);
    }
    // The line of the updates takes the room that is left, and never widens the window.
    statusPanels_[2]->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    statusPanels_[2]->hide();
}

void frmMain::BuildMenus() {
    for (const TopEntry& top : MenuBarEntries()) {
        QMenu* menu = menuBar()->addMenu(QString::fromUtf8(top.caption));
        menu->setObjectName(QString::fromUtf8(top.control));
        menu->menuAction()->setObjectName(QString::fromUtf8(top.control));
        for (const MenuEntry& entry : top.entries) AddEntry(*menu, entry);
    }
    QAction* site = menuBar()->addAction(Qs(context_.session.deployment.makerSiteCaption));
    site->setObjectName(QStringLiteral("m_guangfang"));
    connect(site, &QAction::triggered, this,
            [this] { context_.desktop.Open(Qs(context_.session.deployment.productPage)); });
}

void frmMain::AddEntry(QMenu& menu, const MenuEntry& entry) {
    if (entry.action == MenuAction::kSeparator) {
        menu.addSeparator();
        return;
    }
    QAction* action = menu.addAction(QString::fromUtf8(entry.caption));
    action->setObjectName(QString::fromUtf8(entry.control));
    const bool opensPanel =
        entry.action == MenuAction::kOpenPanel || entry.action == MenuAction::kOpenDialog;
    action->setEnabled(!opensPanel || PanelRegistry::Knows(QString::fromUtf8(entry.argument)));
    connect(action, &QAction::triggered, this, [this, &entry] { RunEntry(entry); });
}

void frmMain::RunEntry(const MenuEntry& entry) {
    const QString argument = QString::fromUtf8(entry.argument);
    switch (entry.action) {
        case MenuAction::kOpenPanel:
            panels_->Open(argument);
            return;
        case MenuAction::kOpenDialog:
            if (panels_->RunDialog(argument) == frmxxjl::kWantsLearning) Learn();
            return;
        case MenuAction::kSay:
            context_.session.host.ShowMessage(entry.argument);
            return;
        default:
            RunCommand(entry);
    }
}

void frmMain::RunCommand(const MenuEntry& entry) {
    const Deployment& deployment = context_.session.deployment;
    switch (entry.action) {
        case MenuAction::kLearn:
            Learn();
            return;
        case MenuAction::kUpdateDraws:
            updates_.Draws();
            return;
        case MenuAction::kUpdatePrizes:
            updates_.Prizes();
            return;
        case MenuAction::kUpdateBallOrder:
            updates_.BallOrder();
            return;
        case MenuAction::kOpenContact:
            context_.desktop.Open(Qs(deployment.contactLink));
            return;
        case MenuAction::kOpenSite:
            context_.desktop.Open(Qs(deployment.makerSite));
            return;
        case MenuAction::kOpenHelp:
            OpenHelp(context_);
            return;
        case MenuAction::kUpdateProgram:
            LaunchUpdater(context_.session, context_.desktop, true);
            return;
        default:
            return;
    }
}

void frmMain::Load() {
    RefillCombos();
    ShowLatestIssue();
    ShowLearningMode(ReadBankerSettings(context_.session));
}

void frmMain::SetStatusPanel(const std::string& text, int panel) {
    statusPanels_[panel - 1]->setText(Qs(Trim(text)));
}

void frmMain::TellUpdate(const std::string& text) {
    SetStatusPanel(text, 3);
    statusPanels_[2]->show();
    // Whole, since the line may be cut short.
    statusPanels_[2]->setToolTip(QStringLiteral("<p>%1</p>").arg(Qs(text).toHtmlEscaped()));
}

void frmMain::ShowLatestIssue() {
    SetStatusPanel("最新:" + context_.session.LatestIssue, 1);
}

void frmMain::UpdateAll() {
    updateAll_->setEnabled(false);
    updates_.All();
    updateAll_->setEnabled(true);
}

void frmMain::TakeNewDraws() {
    ShowLatestIssue();
    RefillCombos();
    panels_->TakeNewDraws();
}

void frmMain::RefillCombos() {
    FillIssueCombos(context_, *start_, *end_, kStartAtLearning);
}

void frmMain::ShowLearningMode(const std::optional<BankerSettings>& settings) {
    SetStatusPanel(LearningModeText(settings), 2);
}

void frmMain::Learn() {
    const std::string endIssue = end_->issue();
    const bool learned = learnRuns_.Perform({.strip = progress_}, [&](Run& run) {
        return LearnFormulas(context_.session, endIssue, run);
    });
    if (!learned) return;
    RefillCombos();
    Recommend();
}

void frmMain::Recommend() {
    Session& session = context_.session;
    const auto settings = ReadBankerSettings(session);
    ShowLearningMode(settings);
    if (!settings) return;
    auto report = BuildBankerRecommendation(session, RangeOf(*start_, *end_), settings->dmgs);
    if (!report) return;
    resultGroup_->setTitle(Qs(report->caption));
    vs1_->SetGrid(std::move(report->grid));
    remark_->Show(report->remark, {{"cboFangFa", "胆码学习"},
                                   {"txtXXQS", std::to_string(settings->xxqs)},
                                   {"cboDMGS", std::to_string(settings->dmgs) + "胆"}});
    vs1_->scrollToBottom();  // the recommendation stands below the draws
}

void frmMain::BuyTickets() {
    const Deployment& deployment = context_.session.deployment;
    context_.desktop.Open(Qs(deployment.partnerHost + "/pages/interfacehezuo.php?coopid=" +
                             deployment.partnerCoopId + "&adid=" + deployment.partnerAdId));
}

void frmMain::keyPressEvent(QKeyEvent* event) {
    if (!TakeKey(context_, *this, recommendButton_, *event)) QMainWindow::keyPressEvent(event);
}

void frmMain::closeEvent(QCloseEvent* event) {
    // Already told to stop, the program ends without the question.
    if (!context_.session.host.stopping() &&
        !context_.desktop.Confirm(QStringLiteral(" 退出软件"),
                                  QStringLiteral(" 您确定要退出软件吗？"))) {
        event->ignore();
        return;
    }
    context_.session.host.Stop();
    context_.session.connection.Close();
    event->accept();
    QApplication::exit(0);  // quit() would ask the other windows, too
}

}  // namespace ssq
