#include "Controls.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QStatusBar>
#include <QTabBar>
#include <QTest>
#include <QToolButton>
#include <stdexcept>

#include "Panels.h"
#include "ui/qt/ChanceRemark.h"

namespace ssq {

namespace {

[[noreturn]] void Refuse(const QWidget& control, const std::string& why) {
    throw std::runtime_error("'" + control.objectName().toStdString() + "' " + why);
}

void Focus(QWidget& control) {
    control.window()->activateWindow();
    control.setFocus(Qt::OtherFocusReason);
    QApplication::processEvents();
}

void PickComboEntry(QComboBox& combo, int index) {
    const QModelIndex entry =
        combo.model()->index(index, combo.modelColumn(), combo.rootModelIndex());
    if (!(entry.flags() & Qt::ItemIsEnabled)) Refuse(combo, "has that entry disabled");
    combo.setCurrentIndex(index);
    Q_EMIT combo.activated(index);
    Q_EMIT combo.textActivated(combo.itemText(index));
}

// Leaving the box is what makes it report the end of editing.
void TypeOver(QLineEdit& box, const QString& text) {
    if (box.isReadOnly()) Refuse(box, "is read-only");
    Focus(box);
    box.selectAll();
    text.isEmpty() ? box.del() : box.insert(text);
    const bool taken = box.text() == text;
    box.clearFocus();
    if (!taken) Refuse(box, "does not take this text");
}

void TypeOver(QPlainTextEdit& box, const QString& text) {
    if (box.isReadOnly()) Refuse(box, "is read-only");
    Focus(box);
    box.selectAll();
    box.insertPlainText(text);
    box.clearFocus();
}

void SetCombo(QComboBox& combo, const QString& value) {
    const int index = combo.findText(value, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (index >= 0) return PickComboEntry(combo, index);
    if (!combo.isEditable()) Refuse(combo, "has no entry \"" + value.toStdString() + "\"");
    TypeOver(*combo.lineEdit(), value);
}

void SetButton(QAbstractButton& button, const QString& value) {
    if (!button.isCheckable()) Refuse(button, "cannot be checked");
    if (value != u"1" && value != u"0") Refuse(button, "takes \"1\" or \"0\"");
    const bool on = value == u"1";
    if (button.isChecked() != on) button.click();
    if (button.isChecked() != on) Refuse(button, "cannot be cleared by itself");
}

// The link is the last word.
void ClickLink(ChanceRemark& remark) {
    if (!remark.text().endsWith(u"</a>")) Refuse(remark, "has no link");
    Q_EMIT remark.linkActivated({});
}

template <typename Control>
void DescribeList(Json& fields, const Control& control, int count,
                  QString (Control::*textAt)(int) const) {
    fields["items"] = Json::array();
    for (int i = 0; i < count; ++i) fields["items"].push_back((control.*textAt)(i));
    fields["index"] = control.currentIndex();
    fields["text"] = (control.*textAt)(control.currentIndex());
}

void DescribeListWidget(Json& fields, const QListWidget& list) {
    fields["items"] = Json::array();
    for (int i = 0; i < list.count(); ++i) fields["items"].push_back(list.item(i)->text());
    fields["index"] = list.currentRow();
    fields["text"] = list.currentItem() ? list.currentItem()->text() : QString();
}

void DescribeStatusBar(Json& fields, const QStatusBar& bar) {
    fields["panels"] = Json::array();
    const auto labels = bar.findChildren<QLabel*>(Qt::FindDirectChildrenOnly);
    for (const QLabel* label : labels) {
        if (!label->isHidden()) fields["panels"].push_back(label->text());
    }
}

}  // namespace

QWidget& FindControl(QWidget& panel, const QString& name) {
    if (panel.objectName() == name) return panel;
    const auto found = panel.findChildren<QWidget*>(name);
    for (QWidget* control : found) {
        if (control->window() == &panel) return *control;
    }
    throw std::runtime_error("no control '" + name.toStdString() + "' in " + Panels::Name(panel));
}

QWidget& FindUsableControl(QWidget& panel, const QString& name) {
    QWidget& control = FindControl(panel, name);
    if (!control.isVisible()) Refuse(control, "is hidden");
    if (!control.isEnabled()) Refuse(control, "is disabled");
    return control;
}

Json ListControls(const QWidget& panel) {
    Json controls = Json::object();
    for (const QWidget* control : panel.findChildren<QWidget*>()) {
        const QString name = control->objectName();
        if (name.isEmpty() || name.startsWith(u"qt_") || control->window() != &panel) continue;
        if (!control->isVisible() || !control->isEnabled()) continue;
        controls[name.toStdString()] = control->metaObject()->className();
    }
    return controls;
}

void SetControl(QWidget& control, const QString& value) {
    if (auto* combo = qobject_cast<QComboBox*>(&control)) return SetCombo(*combo, value);
    if (auto* box = qobject_cast<QLineEdit*>(&control)) return TypeOver(*box, value);
    if (auto* box = qobject_cast<QPlainTextEdit*>(&control)) return TypeOver(*box, value);
    if (auto* button = qobject_cast<QAbstractButton*>(&control)) return SetButton(*button, value);
    Refuse(control, "is nothing to set");
}

void ChooseInControl(QWidget& control, int index) {
    const auto require = [&](int count) {
        if (index < 0 || index >= count) {
            Refuse(control,
                   "has " + std::to_string(count) + " entries, no index " + std::to_string(index));
        }
    };
    if (auto* combo = qobject_cast<QComboBox*>(&control)) {
        require(combo->count());
        PickComboEntry(*combo, index);
    } else if (auto* list = qobject_cast<QListWidget*>(&control)) {
        require(list->count());
        const QListWidgetItem* item = list->item(index);
        list->scrollToItem(item);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualItemRect(item).center());
    } else if (auto* bar = qobject_cast<QTabBar*>(&control)) {
        require(bar->count());
        if (!bar->isTabEnabled(index) || !bar->isTabVisible(index)) Refuse(*bar, "has it disabled");
        Q_EMIT bar->tabBarClicked(index);
        bar->setCurrentIndex(index);
    } else {
        Refuse(control, "has nothing to choose");
    }
}

void ClickControl(QWidget& control) {
    if (auto* remark = qobject_cast<ChanceRemark*>(&control)) return ClickLink(*remark);
    auto* button = qobject_cast<QAbstractButton*>(&control);
    if (!button) Refuse(control, "is no button");
    const auto* tool = qobject_cast<QToolButton*>(button);
    const auto* push = qobject_cast<QPushButton*>(button);
    // The menu would wait for a user.
    if ((tool && tool->menu()) || (push && push->menu())) Refuse(control, "raises a menu");
    button->click();
}

void PressKey(QWidget& control, const QString& key) {
    if (key.isEmpty()) Refuse(control, "gets no key");
    Focus(control);
    const QKeySequence named = QKeySequence::fromString(key, QKeySequence::PortableText);
    if (key.size() > 1 && named.count() == 1 && named[0].key() != Qt::Key_unknown) {
        QTest::keyClick(&control, named[0].key(), named[0].keyboardModifiers());
        return;
    }
    const QPointer<QWidget> target = &control;  // a key may close its panel
    for (const QChar character : key) {
        if (!target) return;
        QTest::sendKeyEvent(QTest::Click, target, Qt::Key_unknown, QString(character), {});
    }
}

Json DescribeControl(const QWidget& control) {
    Json fields{{"enabled", control.isEnabled()}, {"visible", control.isVisible()}};
    // Labels, text boxes and buttons have a text, groups a title.
    for (const char* property : {"text", "plainText", "title"}) {
        const QVariant text = control.property(property);
        if (text.isValid()) fields["text"] = text.toString();
    }
    if (auto* remark = qobject_cast<const ChanceRemark*>(&control)) {
        fields["text"] = remark->plainText();
    }
    if (control.isWindow()) fields["text"] = control.windowTitle();
    if (control.property("checkable").toBool()) {
        fields["checked"] = control.property("checked").toBool();
    }
    if (auto* combo = qobject_cast<const QComboBox*>(&control)) {
        DescribeList(fields, *combo, combo->count(), &QComboBox::itemText);
        fields["text"] = combo->currentText();  // which may be typed
    } else if (auto* list = qobject_cast<const QListWidget*>(&control)) {
        DescribeListWidget(fields, *list);
    } else if (auto* bar = qobject_cast<const QTabBar*>(&control)) {
        DescribeList(fields, *bar, bar->count(), &QTabBar::tabText);
    } else if (auto* status = qobject_cast<const QStatusBar*>(&control)) {
        DescribeStatusBar(fields, *status);
    }
    return fields;
}

}  // namespace ssq
