#include "ui/qt/form.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QEvent>
#include <QGroupBox>
#include <QGuiApplication>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <algorithm>
#include <limits>

#include "ui/qt/Desktop.h"
#include "ui/qt/ElidedGroup.h"
#include "ui/qt/GridExport.h"
#include "ui/qt/GridStrip.h"
#include "ui/qt/GridView.h"
#include "ui/qt/IssueCombo.h"
#include "ui/qt/LineChart.h"
#include "ui/qt/WrappingRow.h"

namespace ssq {

namespace {

template <typename Object>
Object* Named(Object* object, const char* name) {
    if (name) object->setObjectName(QString::fromUtf8(name));
    return object;
}

// Adds a control behind its label at the end of the row's filled part.
template <typename Widget>
Widget* AddLabelled(QBoxLayout* row, Widget* control, const char* name, const QString& label,
                    const char* labelName = nullptr) {
    if (!label.isEmpty()) AddLabel(row, labelName, label)->setBuddy(control);
    row->insertWidget(row->count() - 1, Named(control, name));
    return control;
}

// The wheel over a combo scrolls what it stands in, unless the user is at the combo.
class WheelGuard final : public QObject {
  public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::Wheel || static_cast<QWidget*>(watched)->hasFocus()) {
            return QObject::eventFilter(watched, event);
        }
        event->ignore();
        return true;
    }
};

void GuardFromWheel(QComboBox& combo) {
    combo.setFocusPolicy(Qt::StrongFocus);  // the wheel would take the focus first
    combo.installEventFilter(new WheelGuard(&combo));
}

}  // namespace

QGroupBox* AddGroup(QBoxLayout* layout, const char* name, const QString& caption) {
    auto* group = Named<QGroupBox>(new ElidedGroup(caption), name);
    new QVBoxLayout(group);
    layout->addWidget(group);
    return group;
}

QHBoxLayout* AddRow(QBoxLayout* layout) {
    auto* row = new WrappingRow;
    row->addStretch();
    layout->addLayout(row);
    return row;
}

QHBoxLayout* AddRow(QGroupBox* group) {
    return AddRow(static_cast<QBoxLayout*>(group->layout()));
}

IssueCombo* AddIssueCombo(QBoxLayout* row, const char* name, const QString& label,
                          const char* labelName) {
    auto* combo = AddLabelled(row, new IssueCombo, name, label, labelName);
    GuardFromWheel(*combo);
    return combo;
}

QComboBox* AddCombo(QBoxLayout* row, const char* name, const QString& label,
                    std::initializer_list<const char*> entries) {
    auto* combo = AddLabelled(row, new QComboBox, name, label);
    GuardFromWheel(*combo);
    for (const char* entry : entries) combo->addItem(QString::fromUtf8(entry));
    return combo;
}

QComboBox* AddFreeCombo(QBoxLayout* row, const char* name, const QString& label,
                        std::initializer_list<const char*> entries) {
    constexpr int kLongestNumber = 32;  // characters
    QComboBox* combo = AddCombo(row, name, label, entries);
    combo->setEditable(true);
    combo->setInsertPolicy(QComboBox::NoInsert);
    combo->lineEdit()->setMaxLength(kLongestNumber);
    combo->setCompleter(nullptr);  // "3" is a number of its own, not the start of "30"
    return combo;
}

QLineEdit* AddTextBox(QBoxLayout* row, const char* name, const QString& label) {
    constexpr int kTextBoxWidth = 120;
    constexpr int kLongestText = 1000;  // characters; no told input comes near it
    auto* box = AddLabelled(row, new QLineEdit, name, label);
    box->setMaximumWidth(kTextBoxWidth);
    box->setMaxLength(kLongestText);
    return box;
}

QRadioButton* AddOption(QBoxLayout* row, const char* name, const QString& caption) {
    return AddLabelled(row, new QRadioButton(caption), name, {});
}

QCheckBox* AddCheckBox(QBoxLayout* row, const char* name, const QString& caption) {
    return AddLabelled(row, new QCheckBox(caption), name, {});
}

QLabel* AddLabel(QBoxLayout* row, const char* name, const QString& text) {
    return AddLabelled(row, new QLabel(text), name, {});
}

QPushButton* AddButton(QBoxLayout* row, const char* name, const QString& caption,
                       std::function<void()> onClick) {
    auto* button = AddLabelled(row, new QPushButton(caption), name, {});
    button->setAutoDefault(false);
    if (onClick) QObject::connect(button, &QPushButton::clicked, button, std::move(onClick));
    return button;
}

void AddEntry(QMenu& menu, const char* name, const QString& caption, std::function<void()> action) {
    QAction* entry = Named(menu.addAction(caption), name);
    QObject::connect(entry, &QAction::triggered, entry, std::move(action));
}

QPushButton* AddPeriodMenu(QBoxLayout* row, IssueCombo& start, IssueCombo& end, int drawsBefore) {
    constexpr int kBesideText = 40;  // pixels for the frame and the arrow
    auto* button = AddButton(row, "mnuQishu", QStringLiteral("最近"), {});
    button->setToolTip(QStringLiteral("选择最近的期数"));
    button->setFocusPolicy(Qt::TabFocus);  // a click leaves the keys to the combos
    button->setMaximumWidth(button->fontMetrics().horizontalAdvance(button->text()) + kBesideText);
    auto* menu = new QMenu(button);
    const auto add = [&](const char* name, const QString& caption, int draws) {
        AddEntry(*menu, name, caption, [&start, &end, draws, drawsBefore] {
            end.TakeEntry(0);
            start.TakeEntry(std::min(draws, std::max(start.count() - drawsBefore, 1)) - 1);
        });
    };
    add("mnuQishu30", QStringLiteral("近30期"), 30);
    add("mnuQishu50", QStringLiteral("近50期"), 50);
    add("mnuQishu100", QStringLiteral("近100期"), 100);
    add("mnuQishuAll", QStringLiteral("全部"), std::numeric_limits<int>::max());
    button->setMenu(menu);
    return button;
}

void SetPopup(const PanelContext& context, GridView& view, const char* name, const char* caption,
              std::vector<PopupEntry> entries, std::function<bool()> isReady) {
    view.onPopup = [&desktop = context.desktop, name, caption, entries = std::move(entries),
                    isReady = std::move(isReady)](const QPoint& place) {
        if (isReady && !isReady()) return;
        QMenu menu(QString::fromUtf8(caption));
        menu.setObjectName(QString::fromUtf8(name));
        for (const PopupEntry& entry : entries) {
            AddEntry(menu, entry.name, QString::fromUtf8(entry.caption), entry.action);
        }
        desktop.RaisePopup(menu, place);
    };
}

GridView* AddGrid(const PanelContext& context, QBoxLayout* layout, const char* name) {
    auto* view = Named(new GridView, name);
    auto* column = new QVBoxLayout;
    column->setSpacing(0);
    column->addWidget(view, 1);
    column->addWidget(new GridStrip(context, *view));
    layout->addLayout(column, 1);
    SetPopup(context, *view, "grid_popup", "表格",
             {{"grid_copy", "复制选中的号码", [view] { CopySelection(*view); }},
              {"grid_copyTable", "带标题复制", [view] { CopyTable(*view); }}});
    return view;
}

GridView* AddGrid(const PanelContext& context, QGroupBox* group, const char* name) {
    if (auto* column = qobject_cast<QBoxLayout*>(group->parentWidget()->layout())) {
        column->setStretchFactor(group, 1);
    }
    return AddGrid(context, static_cast<QBoxLayout*>(group->layout()), name);
}

void OfferPicture(const PanelContext& context, QWidget& chart, std::function<QImage()> picture) {
    chart.setFocusPolicy(Qt::StrongFocus);
    chart.setContextMenuPolicy(Qt::CustomContextMenu);
    const auto copy = [picture] { QGuiApplication::clipboard()->setImage(picture()); };
    auto* key = new QShortcut(QKeySequence::Copy, &chart, copy);
    key->setContext(Qt::WidgetWithChildrenShortcut);
    const auto raise = [context, &chart, copy, picture = std::move(picture)](const QPoint& place) {
        QMenu menu;
        menu.setObjectName(QStringLiteral("chart_popup"));
        AddEntry(menu, "chart_copy", QStringLiteral("复制图片\tCtrl+C"), copy);
        AddEntry(menu, "chart_png", QStringLiteral("保存为图片…"),
                 [&] { SavePicture(context, chart.window()->windowTitle().trimmed(), picture); });
        context.desktop.RaisePopup(menu, chart.mapToGlobal(place));
    };
    QObject::connect(&chart, &QWidget::customContextMenuRequested, &chart, raise);
}

LineChart* AddLineChart(const PanelContext& context, QBoxLayout* layout, const char* name) {
    auto* chart = Named(new LineChart, name);
    layout->addWidget(chart, 1);
    OfferPicture(context, *chart, [chart] { return chart->Picture(); });
    return chart;
}

}  // namespace ssq
