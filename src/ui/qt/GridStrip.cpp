#include "ui/qt/GridStrip.h"

#include <QBoxLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QShortcut>
#include <QTimer>
#include <QToolButton>

#include "base/numbers.h"
#include "ui/GridOrder.h"
#include "ui/qt/Desktop.h"
#include "ui/qt/GridExport.h"
#include "ui/qt/GridView.h"
#include "ui/qt/Qs.h"
#include "ui/qt/form.h"

namespace ssq {

namespace {

constexpr int kFindWidth = 140;  // pixels
constexpr int kPoints = 9;
constexpr int kPauseMs = 40;  // from a change of the selection to its figures

QToolButton* FlatButton(QWidget* parent, const QString& text, const QString& tip) {
    auto* button = new QToolButton(parent);
    button->setAutoRaise(true);
    button->setText(text);
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    button->setFocusPolicy(Qt::NoFocus);
    return button;
}

}  // namespace

GridStrip::GridStrip(const PanelContext& context, GridView& view) : context_(context), view_(view) {
    setObjectName(view.objectName() + QStringLiteral("_strip"));
    QFont small = font();
    small.setPointSize(kPoints);
    setFont(small);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(2);
    BuildFind();
    row->addWidget(findRow_);
    word_ = new QLabel;
    word_->setObjectName(view.objectName() + QStringLiteral("_word"));
    word_->setTextFormat(Qt::PlainText);
    word_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    row->addWidget(word_, 1);
    BuildMenu();
    row->addWidget(zoom_);
    row->addWidget(menu_);
    setFixedHeight(fontMetrics().height() + 6);

    auto* pause = new QTimer(this);
    pause->setSingleShot(true);
    pause->setInterval(kPauseMs);
    QObject::connect(pause, &QTimer::timeout, this, [this] { ShowFigures(); });
    view.onChange = [this, pause] {
        telling_ = false;
        ShowZoom();
        pause->start();
    };
    view.onTell = [this, pause](const QString& text) {
        pause->stop();
        telling_ = true;
        word_->setText(text);
    };
    view.onCopy = [&view] { CopySelection(view); };
    view.onCopyTable = [&view] { CopyTable(view); };
    view.installEventFilter(this);
    AddShortcuts();
}

void GridStrip::BuildFind() {
    findRow_ = new QWidget(this);
    auto* row = new QHBoxLayout(findRow_);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(2);
    find_ = new QLineEdit;
    find_->setObjectName(view_.objectName() + QStringLiteral("_find"));
    find_->setPlaceholderText(QStringLiteral("查找"));
    find_->setAccessibleName(QStringLiteral("在表格中查找"));
    find_->setFixedWidth(kFindWidth);
    find_->setMaxLength(100);
    find_->installEventFilter(this);
    connect(find_, &QLineEdit::textChanged, this, [this] { Find(); });
    row->addWidget(find_);
    const auto add = [&](const char* text, const char* tip, auto action) {
        auto* button = FlatButton(findRow_, QString::fromUtf8(text), QString::fromUtf8(tip));
        connect(button, &QToolButton::clicked, this, action);
        row->addWidget(button);
    };
    add("▲", "上一个 (Shift+F3)", [this] { GoToHit(false); });
    add("▼", "下一个 (F3)", [this] { GoToHit(true); });
    count_ = new QLabel;
    count_->setObjectName(view_.objectName() + QStringLiteral("_count"));
    row->addWidget(count_);
    add("✕", "关闭查找 (Esc)", [this] { CloseFind(); });
    findRow_->hide();
}

void GridStrip::BuildMenu() {
    zoom_ = FlatButton(this, QStringLiteral("100%"),
                       QStringLiteral("恢复原来的大小 (Ctrl+0)，Ctrl+滚轮缩放"));
    zoom_->setObjectName(view_.objectName() + QStringLiteral("_zoom"));
    connect(zoom_, &QToolButton::clicked, this, [this] { view_.SetZoom(100); });
    zoom_->hide();
    menu_ = FlatButton(this, QStringLiteral("表格 ▾"), QStringLiteral("查找、复制、保存和打印"));
    menu_->setObjectName(view_.objectName() + QStringLiteral("_menu"));
    connect(menu_, &QToolButton::clicked, this, [this] { RaiseMenu(); });
}

void GridStrip::RaiseMenu() {
    QMenu menu;
    menu.setObjectName(QStringLiteral("grid_menu"));
    const auto add = [&](const char* name, const char* caption, std::function<void()> action) {
        AddEntry(menu, name, QString::fromUtf8(caption), std::move(action));
    };
    add("grid_find", "查找…\tCtrl+F", [this] { OpenFind(); });
    add("grid_copy", "复制选中的号码\tCtrl+C", [this] { CopySelection(view_); });
    add("grid_copyTable", "带标题复制\tCtrl+Shift+C", [this] { CopyTable(view_); });
    menu.addSeparator();
    add("grid_csv", "保存为CSV…", [this] { SaveGridAsCsv(context_, view_); });
    add("grid_png", "保存为图片…", [this] { SaveGridAsPicture(context_, view_); });
    add("grid_pdf", "保存为PDF…", [this] { SaveGridAsPdf(context_, view_); });
    add("grid_print", "打印…", [this] { PrintGrid(context_, view_); });
    menu.addSeparator();
    add("grid_larger", "放大\tCtrl++", [this] { view_.StepZoom(1); });
    add("grid_smaller", "缩小\tCtrl+-", [this] { view_.StepZoom(-1); });
    add("grid_100", "原来的大小\tCtrl+0", [this] { view_.SetZoom(100); });
    context_.desktop.RaisePopup(menu, menu_->mapToGlobal(QPoint(0, menu_->height())));
}

void GridStrip::AddShortcuts() {
    const auto add = [this](const QKeySequence& keys, void (*action)(GridStrip&)) {
        auto* shortcut = new QShortcut(keys, &view_);
        const auto run = [this, action] {
            if (GridStrip* strip = Meant(*view_.window())) action(*strip);
        };
        connect(shortcut, &QShortcut::activated, this, run);
        connect(shortcut, &QShortcut::activatedAmbiguously, this, run);
    };
    add(QKeySequence::Find, [](GridStrip& strip) { strip.OpenFind(); });
    add(Qt::Key_F3, [](GridStrip& strip) { strip.GoToHit(true); });
    add(Qt::SHIFT | Qt::Key_F3, [](GridStrip& strip) { strip.GoToHit(false); });
}

GridStrip* GridStrip::Meant(const QWidget& window) {
    GridStrip* meant = nullptr;
    for (auto* widget : window.findChildren<QWidget*>()) {
        auto* strip = dynamic_cast<GridStrip*>(widget);
        if (!strip || !strip->isVisible() || strip->window() != &window) continue;
        if (!meant || strip->lastUse_ > meant->lastUse_) meant = strip;
    }
    return meant;
}

bool GridStrip::eventFilter(QObject* watched, QEvent* event) {
    static qint64 uses = 0;
    switch (event->type()) {
        case QEvent::FocusIn:
            lastUse_ = ++uses;
            break;
        case QEvent::Show:
            if (watched == &view_) NameGrid();
            break;
        case QEvent::ShowToParent:
        case QEvent::HideToParent:
            if (watched == &view_) setVisible(event->type() == QEvent::ShowToParent);
            break;
        case QEvent::KeyPress: {
            const auto* key = static_cast<QKeyEvent*>(event);
            if (watched == find_) return FindKey(key->key(), key->modifiers());
            break;
        }
        default:
            break;
    }
    return QWidget::eventFilter(watched, event);
}

// Assistive technology calls the grid by the title that stands over it.
void GridStrip::NameGrid() {
    QString title = view_.window()->windowTitle().trimmed();
    for (const QWidget* parent = parentWidget(); parent; parent = parent->parentWidget()) {
        const auto* group = qobject_cast<const QGroupBox*>(parent);
        if (!group || group->title().isEmpty()) continue;
        title = group->title();
        break;
    }
    view_.setAccessibleName(title);
}

// The field's own keys, which the panel would take for its main button or for its end.
bool GridStrip::FindKey(int key, Qt::KeyboardModifiers modifiers) {
    switch (key) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            GoToHit(!(modifiers & Qt::ShiftModifier));
            return true;
        case Qt::Key_Escape:
            CloseFind();
            return true;
        default:
            return false;
    }
}

void GridStrip::OpenFind() {
    findRow_->show();
    find_->setFocus(Qt::ShortcutFocusReason);
    find_->selectAll();
    Find();
}

void GridStrip::CloseFind() {
    findRow_->hide();
    view_.Find({});
    view_.setFocus();
}

void GridStrip::Find() {
    view_.Find(find_->text());
    ShowHits(0);
}

void GridStrip::GoToHit(bool forwards) {
    if (findRow_->isHidden()) return OpenFind();
    const int number = view_.GoToHit(forwards);
    ShowHits(number);
}

void GridStrip::ShowHits(int number) {
    const int hits = hitsShown_ = view_.hitCount();
    QString text;
    if (!find_->text().isEmpty()) {
        text = hits == 0    ? QStringLiteral("没有找到")
               : number > 0 ? QStringLiteral("第 %1 / %2 处").arg(number).arg(hits)
                            : QStringLiteral("共 %1 处").arg(hits);
    }
    count_->setText(text);
}

void GridStrip::ShowZoom() {
    const QString text = QStringLiteral("%1%").arg(view_.zoom());
    if (zoom_->text() == text) return;
    zoom_->setText(text);
    zoom_->setVisible(view_.zoom() != 100);
}

void GridStrip::ShowFigures() {
    if (!findRow_->isHidden() && view_.hitCount() != hitsShown_) ShowHits(0);
    if (telling_) return;
    const SelectionFigures figures = FiguresOf(view_.shown());
    QString text;
    if (figures.cells > 1) {
        text = QStringLiteral("选中 %1 格").arg(figures.cells);
        if (figures.numbers > 0) {
            text += QStringLiteral(" · 数字 %1 个 · 合计 %2 · 平均 %3")
                        .arg(figures.numbers)
                        .arg(Qs(NumberText(Round(figures.sum))),
                             Qs(NumberText(Round(figures.sum / figures.numbers))));
        }
    }
    word_->setText(text);
    word_->setToolTip(text);
}

}  // namespace ssq
