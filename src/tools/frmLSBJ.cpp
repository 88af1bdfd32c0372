#include "tools/frmLSBJ.h"

#include <QBoxLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>

#include "tools/NumberComparator.h"
#include "ui/qt/Qs.h"
#include "ui/qt/form.h"

namespace ssq {

frmLSBJ::frmLSBJ(const PanelContext& context, QWidget* parent)
    : Panel(context, parent,
            {"frmLSBJ", " 历史号码比较器--比较一下你选择的号码是否已经中过奖", 900, 560}) {
    constexpr int kLongestInput = 200;  // twice what 33 numbers need
    auto* column = new QVBoxLayout(this);
    auto* input = AddRow(
        AddGroup(column, "Frame1", QStringLiteral("输入要对比的号码，与历史开奖数据进行对比")));
    txtHM_ =
        AddTextBox(input, "TxtHM", QStringLiteral("请输入你要进行对比的号码(空格或逗号分开)："));
    txtHM_->setFixedWidth(320);
    txtHM_->setMaxLength(kLongestInput);
    txtHM_->setText(QStringLiteral("01,02,03,04,05,06"));
    SetMainButton(AddButton(input, "Command1", QStringLiteral("开始比较"), [this] { Compare(); }));
    auto* lists = new QHBoxLayout;
    six_ = AddList(*lists, "6", "六");
    five_ = AddList(*lists, "5", "五");
    four_ = AddList(*lists, "4", "四");
    column->addLayout(lists, 1);
}

frmLSBJ::CaughtList frmLSBJ::AddList(QBoxLayout& row, const char* digit, const char* word) {
    const QString number = QString::fromUtf8(digit);
    auto* group =
        AddGroup(&row, nullptr, QStringLiteral("中%1个红球比较结果").arg(QString::fromUtf8(word)));
    auto* counter = AddRow(group);
    AddLabel(counter, nullptr, QStringLiteral("%1红出现的次数为：").arg(number));
    auto* count = AddLabel(counter, nullptr, QStringLiteral("0"));
    count->setObjectName(QStringLiteral("LabHong%1").arg(number));
    auto* list = new QListWidget;
    list->setObjectName(QStringLiteral("L%1Hong").arg(number));
    list->setAccessibleName(group->title());
    group->layout()->addWidget(list);
    return {list, count};
}

void frmLSBJ::CaughtList::Show(const std::vector<std::string>& draws) const {
    for (const std::string& draw : draws) list->addItem(Qs(draw));
    count->setText(QString::number(draws.size()));
}

void frmLSBJ::Compare() {
    for (const CaughtList& caught : {six_, five_, four_}) caught.list->clear();
    const QString text = txtHM_->text().trimmed();
    if (text.isEmpty()) return;
    const auto caught = CompareWithHistory(session(), text.toStdString());
    if (!caught) return;
    six_.Show(caught->six);
    five_.Show(caught->five);
    four_.Show(caught->four);
}

}  // namespace ssq
