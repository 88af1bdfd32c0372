#include "tools/ZDY_XDM.h"

#include <QBoxLayout>
#include <QFileInfo>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QSplitter>
#include <QTextBrowser>

#include "base/dates.h"
#include "base/numbers.h"
#include "draws/NumberSource.h"
#include "draws/Public_var.h"
#include "tools/Expression.h"
#include "tools/FormulaFiles.h"
#include "ui/Host.h"
#include "ui/qt/ChanceRemark.h"
#include "ui/qt/Desktop.h"
#include "ui/qt/Qs.h"
#include "ui/qt/form.h"

namespace ssq {

namespace {

constexpr const char* kBankers = "胆码";

// Before the address of the guide.
constexpr const char* kHelp[] = {
    "使用帮助：",
    "分别用a1(红球1),a2(红球2),a3(红球3),a4(红球4),a5(红球5),a6(红球6),a7(蓝球),"
    "代表上期开奖的6个红球和一个蓝球，您可以将这几个球加减乘除(+-*/),"
    "但一定按照数学运算的规律来做公式。",
    "实例：公式一：int((a1+a2)/2) 就第一个红球加上第二红球后再除以2，有可能会除不尽，那就取整数！"
    "详细使用说明请参考软件帮助文件！或者在线文档：网址：",
};

}  // namespace

ZDY_XDM::ZDY_XDM(const PanelContext& context, QWidget* parent)
    : Panel(context, parent, {"ZDY_XDM", " 自助式寻找胆码", 1040, 640}) {
    auto* column = new QVBoxLayout(this);
    BuildConditions(*column);
    auto* halves = new QSplitter;
    halves->setChildrenCollapsible(false);
    halves->addWidget(BuildFormulas());
    halves->addWidget(BuildResults());
    halves->setStretchFactor(1, 1);
    column->addWidget(halves, 1);
    ShowHelp();
    if (const auto stored = LoadFormulaList(session())) ShowFormulas(*stored);
    text1_->setFocus();
}

void ZDY_XDM::BuildConditions(QBoxLayout& column) {
    constexpr std::size_t kYearDigits = 4;
    auto* row = AddRow(&column);
    txtMzs_ = AddTextBox(row, "TxtMzs", QStringLiteral("命中>=:"));
    txtMze_ = AddTextBox(row, "TxtMze", QStringLiteral("<="));
    for (QLineEdit* hits : {txtMzs_, txtMze_}) hits->setFixedWidth(48);
    txtMzs_->setText(QStringLiteral("1"));
    txtMze_->setText(QStringLiteral("6"));
    txtSdate_ = AddTextBox(row, "txtSdate", QStringLiteral("期号>=:"));
    txtEdate_ = AddTextBox(row, "txtEdate", QStringLiteral("<="));
    const std::string& latest = session().LatestIssue;
    txtSdate_->setText(Qs(latest.substr(0, kYearDigits) + "001"));
    txtEdate_->setText(Qs(latest));
    AddOption(row, "optRed", QStringLiteral("红球"))->setChecked(true);
    optBLUE_ = AddOption(row, "optBLUE", QStringLiteral("蓝球"));
    optDW_ = AddOption(row, "optDW", QStringLiteral("尾数"));
    SetMainButton(AddButton(row, "Command4", QStringLiteral("统计(&A)"),
                            [this] { Perform({}, [this](Run& run) { return Test(run); }); }));
}

QWidget* ZDY_XDM::BuildFormulas() {
    auto* group = new QGroupBox(QStringLiteral("自定义公式"));
    group->setObjectName(QStringLiteral("Frame1"));
    auto* column = new QVBoxLayout(group);
    text1_ = new QLineEdit;
    text1_->setObjectName(QStringLiteral("Text1"));
    text1_->setMaxLength(static_cast<int>(kLongestExpression));
    text1_->setAccessibleName(QStringLiteral("公式"));
    text1_->installEventFilter(this);
    column->addWidget(text1_);
    auto* edits = AddRow(column);
    AddButton(edits, "Command1", QStringLiteral("增加公式"), [this] {
        AddFormula();
    })->setToolTip(QStringLiteral("F1"));
    AddButton(edits, "Command2", QStringLiteral("删除公式"), [this] {
        DeleteFormula();
    })->setToolTip(QStringLiteral("F2"));
    AddButton(edits, "Command3", QStringLiteral("替换公式"), [this] {
        ReplaceFormula();
    })->setToolTip(QStringLiteral("F3"));
    list1_ = new QListWidget;
    list1_->setObjectName(QStringLiteral("List1"));
    list1_->setAccessibleName(group->title());
    list1_->installEventFilter(this);
    // A list that only gets the focus makes an item current without marking it.
    const auto copyToLine = [this] {
        if (const QListWidgetItem* item = MarkedFormula()) text1_->setText(item->text());
    };
    connect(list1_, &QListWidget::itemClicked, this, copyToLine);
    connect(list1_, &QListWidget::itemSelectionChanged, this, copyToLine);
    column->addWidget(list1_, 1);
    auto* files = AddRow(column);
    AddButton(files, "Command5", QStringLiteral("调入公式"), [this] { LoadFile(); });
    AddButton(files, "Command6", QStringLiteral("保存公式"), [this] { SaveFile(); });
    return group;
}

QWidget* ZDY_XDM::BuildResults() {
    auto* group = new QGroupBox(QStringLiteral("历史过关"));
    group->setObjectName(QStringLiteral("Frame2"));
    list2_ = new QTextBrowser;
    list2_->setObjectName(QStringLiteral("List2"));
    list2_->setAccessibleName(group->title());
    list2_->setOpenLinks(false);
    connect(list2_, &QTextBrowser::anchorClicked, this,
            [this](const QUrl& url) { context().desktop.Open(url.toString()); });
    auto* column = new QVBoxLayout(group);
    column->addWidget(list2_);
    column->addWidget(remark_ = new ChanceRemark(context()));
    return group;
}

void ZDY_XDM::ShowHelp() {
    QStringList lines;
    for (const char* line : kHelp) lines.append(QString::fromUtf8(line).toHtmlEscaped());
    const QString guide = Qs(session().deployment.formulaGuide).toHtmlEscaped();
    list2_->setHtml(lines.join(QStringLiteral("<br>")) +
                    QStringLiteral("<a href=\"%1\">%1</a>").arg(guide));
}

bool ZDY_XDM::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return Panel::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (watched == text1_ && (key == Qt::Key_F1 || key == Qt::Key_Return || key == Qt::Key_Enter)) {
        AddFormula();
    } else if ((watched == list1_ && key == Qt::Key_Delete) ||
               (watched == text1_ && key == Qt::Key_F2)) {
        DeleteFormula();
    } else if (watched == text1_ && key == Qt::Key_F3) {
        ReplaceFormula();
    } else {
        return Panel::eventFilter(watched, event);
    }
    return true;
}

FormulaTarget ZDY_XDM::target() const {
    if (optBLUE_->isChecked()) return FormulaTarget::kBlue;
    return optDW_->isChecked() ? FormulaTarget::kTail : FormulaTarget::kRed;
}

std::vector<std::string> ZDY_XDM::formulas() const {
    std::vector<std::string> formulas;
    formulas.reserve(static_cast<std::size_t>(list1_->count()));
    for (int i = 0; i < list1_->count(); ++i) {
        formulas.push_back(list1_->item(i)->text().toStdString());
    }
    return formulas;
}

QString ZDY_XDM::EditedFormula() const {
    return text1_->text().remove(u'\r').remove(u'\n').trimmed();
}

void ZDY_XDM::ShowFormulas(const std::vector<std::string>& formulas) {
    list1_->clear();
    for (const std::string& formula : formulas) list1_->addItem(Qs(formula));
}

bool ZDY_XDM::CheckHits() {
    if (CheckRange(session().host, txtMzs_->text().toStdString(), txtMze_->text().toStdString())) {
        return true;
    }
    txtMzs_->setFocus();
    return false;
}

void ZDY_XDM::StoreFormulas() {
    if (CheckHits()) SaveFormulaList(session(), formulas());
}

void ZDY_XDM::AddFormula() {
    const QString formula = EditedFormula();
    if (formula.isEmpty()) return;
    list1_->addItem(formula);
    list1_->scrollToBottom();
    text1_->selectAll();
    StoreFormulas();
}

QListWidgetItem* ZDY_XDM::MarkedFormula() const {
    const QList<QListWidgetItem*> marked = list1_->selectedItems();
    return marked.isEmpty() ? nullptr : marked.first();
}

void ZDY_XDM::DeleteFormula() {
    QListWidgetItem* const item = MarkedFormula();
    if (!item) return;
    {
        const QSignalBlocker keepsLine(list1_);  // the deleted formula stays in the edit line
        delete item;
    }
    StoreFormulas();
}

void ZDY_XDM::ReplaceFormula() {
    const QString formula = EditedFormula();
    QListWidgetItem* const item = MarkedFormula();
    if (formula.isEmpty() || !item) return;
    item->setText(formula);
    StoreFormulas();
}

void ZDY_XDM::LoadFile() {
    // Files are sorted into folders by day, such as 26-01-14.
    const std::filesystem::path folder = session().userFolder;
    const QString today = Qs((folder / NowText().substr(2, 8)).string());
    const QString chosen = context().desktop.AskOpenFile(
        QStringLiteral("请选择公式文件"), QFileInfo(today).isDir() ? today : Qs(folder.string()),
        QStringLiteral("*.dmgs"));
    if (chosen.isEmpty()) return;
    const auto formulas = ReadZDYgs(session().host, chosen.toStdString());
    if (!formulas) return;
    setWindowTitle(QStringLiteral("自定义寻胆码--") + chosen);
    ShowFormulas(*formulas);
    if (chosen.contains(QString::fromUtf8(kBankers))) {
        txtMzs_->setText(QStringLiteral("1"));
        txtMze_->setText(QStringLiteral("6"));
    }
    StoreFormulas();
}

void ZDY_XDM::SaveFile() {
    if (list1_->count() == 0 || !CheckHits()) return;
    SaveZDYgs(session(), formulas(), TargetWord(target()), list2_->toPlainText().toStdString());
}

bool ZDY_XDM::Test(Run& run) {
    const FormulaTest test{
        {txtSdate_->text().trimmed().toStdString(), txtEdate_->text().trimmed().toStdString()},
        txtMzs_->text().toStdString(),
        txtMze_->text().toStdString(),
        target()};
    if (!CheckPeriod(session(), test.range) || list1_->count() == 0 || !CheckHits()) return false;
    list2_->setCurrentCharFormat({});  // not the link's
    list2_->setPlainText(QStringLiteral("正在计算中,请稍候......"));
    remark_->Show({});
    const auto report = TestFormulas(session(), test, run);
    if (!report) return false;
    list2_->setPlainText(Qs(report->lines));
    const char* const option = test.target == FormulaTarget::kRed    ? "optRed"
                               : test.target == FormulaTarget::kBlue ? "optBLUE"
                                                                     : "optDW";
    remark_->Show(report->remark, {{"cboFangFa", "自助胆码公式"},
                                   {option, "1"},
                                   {"TxtMzs", test.low},
                                   {"TxtMze", test.high}});
    NameNumbers(FormulaSources(formulas(), test.target, ParseNumber(test.low).value_or(0),
                               ParseNumber(test.high).value_or(0)));
    return true;
}

}  // namespace ssq
