#include "Controls.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QJsonArray>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPointer>
#include <QSpinBox>
#include <QStatusBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QTextEdit>

#include "Panels.h"
#include "Refusal.h"

namespace ssq {

namespace {

void Focus(QWidget& control) {
    control.window()->activateWindow();
    control.setFocus(Qt::OtherFocusReason);
    QApplication::processEvents();
}

bool IsOn(const QString& value) {
    if (value == u"1") return true;
    if (value == u"0") return false;
    throw Refusal(u"a check box or option takes \"1\" or \"0\", not \"%1\""_qs.arg(value));
}

void PickComboEntry(QComboBox& combo, int index) {
    const QModelIndex entry =
        combo.model()->index(index, combo.modelColumn(), combo.rootModelIndex());
    if (!(entry.flags() & Qt::ItemIsEnabled)) {
        throw Refusal(u"entry %1 of '%2' is disabled"_qs.arg(index).arg(combo.objectName()));
    }
    combo.setCurrentIndex(index);
    Q_EMIT combo.activated(index);
    Q_EMIT combo.textActivated(combo.itemText(index));
}

// Leaving the box is what makes it report the end of editing.
template <typename Editor>
void TypeOver(Editor& editor, const QString& text) {
    if (editor.isReadOnly()) throw Refusal(u"'%1' is read-only"_qs.arg(editor.objectName()));
    Focus(editor);
    editor.selectAll();
    if constexpr (std::is_same_v<Editor, QLineEdit>) {
        text.isEmpty() ? editor.del() : editor.insert(text);
        const bool taken = editor.text() == text;
        editor.clearFocus();
        if (!taken) throw Refusal(u"'%1' does not take this text"_qs.arg(editor.objectName()));
    } else {
        editor.insertPlainText(text);
        editor.clearFocus();
    }
}

void SetCombo(QComboBox& combo, const QString& value) {
    const int index = combo.findText(value, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (index >= 0) return PickComboEntry(combo, index);
    if (!combo.isEditable()) {
        throw Refusal(u"'%1' has no entry \"%2\""_qs.arg(combo.objectName(), value));
    }
    TypeOver(*combo.lineEdit(), value);
}

void SetButton(QAbstractButton& button, bool on) {
    if (!button.isCheckable()) {
        throw Refusal(u"'%1' is a button that cannot be checked"_qs.arg(button.objectName()));
    }
    if (button.isChecked() != on) button.click();
    if (button.isChecked() != on) {
        throw Refusal(
            u"'%1' cannot be cleared by itself; choose another option"_qs.arg(button.objectName()));
    }
}

void SetGroup(QGroupBox& group, bool on) {
    if (!group.isCheckable()) throw Refusal(u"group '%1' has no box"_qs.arg(group.objectName()));
    if (group.isChecked() == on) return;
    group.setChecked(on);
    Q_EMIT group.clicked(on);
}

void SetSpinBox(QSpinBox& box, const QString& value) {
    bool isNumber = false;
    const int number = value.toInt(&isNumber);
    if (!isNumber || number < box.minimum() || number > box.maximum()) {
        throw Refusal(u"'%1' takes numbers from %2 to %3"_qs.arg(box.objectName())
                          .arg(box.minimum())
                          .arg(box.maximum()));
    }
    if (box.isReadOnly()) throw Refusal(u"'%1' is read-only"_qs.arg(box.objectName()));
    box.setValue(number);
    Q_EMIT box.editingFinished();
}

void RequireIndex(const QWidget& control, int index, int count) {
    if (index >= 0 && index < count) return;
    throw Refusal(
        u"'%1' has %2 entries, no index %3"_qs.arg(control.objectName()).arg(count).arg(index));
}

void PickTab(QTabBar& bar, int index) {
    if (!bar.isTabEnabled(index) || !bar.isTabVisible(index)) {
        throw Refusal(u"tab %1 is disabled or hidden"_qs.arg(index));
    }
    Q_EMIT bar.tabBarClicked(index);
    bar.setCurrentIndex(index);
}

void PickListEntry(QListWidget& list, int index) {
    QListWidgetItem* item = list.item(index);
    list.scrollToItem(item);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(item).center());
}

void Type(QWidget& control, const QString& text) {
    const QPointer<QWidget> target = &control;
    for (const QChar character : text) {
        if (!target) return;
        QTest::sendKeyEvent(QTest::Click, target, Qt::Key_unknown, QString(character), {});
    }
}

template <typename Control>
void DescribeList(QJsonObject& fields, const Control& control, int count,
                  QString (Control::*textAt)(int) const) {
    QJsonArray items;
    for (int index = 0; index < count; ++index) items.append((control.*textAt)(index));
    fields[u"items"] = items;
    fields[u"index"] = control.currentIndex();
}

void DescribeListWidget(QJsonObject& fields, const QListWidget& list) {
    QJsonArray items;
    for (int index = 0; index < list.count(); ++index) items.append(list.item(index)->text());
    fields[u"items"] = items;
    fields[u"index"] = list.currentRow();
    fields[u"text"] = list.currentItem() ? list.currentItem()->text() : QString();
}

void DescribeText(QJsonObject& fields, const QWidget& control) {
    const char* const property = [&] {
        if (qobject_cast<const QComboBox*>(&control)) return "currentText";
        if (qobject_cast<const QGroupBox*>(&control)) return "title";
        if (control.isWindow()) return "windowTitle";
        const bool manyLines = qobject_cast<const QPlainTextEdit*>(&control) ||
                               qobject_cast<const QTextEdit*>(&control);
        return manyLines ? "plainText" : "text";  // labels, text boxes, buttons, spin boxes
    }();
    const QVariant text = control.property(property);
    if (text.isValid()) fields[u"text"] = text.toString();
}

void DescribeChecked(QJsonObject& fields, const QWidget& control) {
    const QVariant checkable = control.property("checkable");
    if (checkable.toBool()) fields[u"checked"] = control.property("checked").toBool();
}

void DescribeStatusBar(QJsonObject& fields, const QStatusBar& bar) {
    QJsonArray panels;
    const auto labels = bar.findChildren<QLabel*>(Qt::FindDirectChildrenOnly);
    for (const QLabel* label : labels) panels.append(label->text());
    fields[u"panels"] = panels;
}

}  // namespace

QWidget& FindControl(QWidget& panel, const QString& name) {
    if (panel.objectName() == name) return panel;
    const auto found = panel.findChildren<QWidget*>(name);
    for (QWidget* control : found) {
        if (control->window() == &panel) return *control;
    }
    throw Refusal(u"no control '%1' in %2"_qs.arg(name, Panels::Name(panel)));
}

QWidget& FindUsableControl(QWidget& panel, const QString& name) {
    QWidget& control = FindControl(panel, name);
    if (!control.isVisible()) throw Refusal(u"'%1' is hidden"_qs.arg(name));
    if (!control.isEnabled()) throw Refusal(u"'%1' is disabled"_qs.arg(name));
    return control;
}

void SetControl(QWidget& control, const QString& value) {
    if (auto* combo = qobject_cast<QComboBox*>(&control)) return SetCombo(*combo, value);
    if (auto* box = qobject_cast<QLineEdit*>(&control)) return TypeOver(*box, value);
    if (auto* box = qobject_cast<QPlainTextEdit*>(&control)) return TypeOver(*box, value);
    if (auto* box = qobject_cast<QTextEdit*>(&control)) return TypeOver(*box, value);
    if (auto* box = qobject_cast<QSpinBox*>(&control)) return SetSpinBox(*box, value);
    if (auto* button = qobject_cast<QAbstractButton*>(&control)) {
        return SetButton(*button, IsOn(value));
    }
    if (auto* group = qobject_cast<QGroupBox*>(&control)) return SetGroup(*group, IsOn(value));
    throw Refusal(u"'%1' is nothing to set"_qs.arg(control.objectName()));
}

void ChooseInControl(QWidget& control, int index) {
    if (auto* combo = qobject_cast<QComboBox*>(&control)) {
        RequireIndex(control, index, combo->count());
        return PickComboEntry(*combo, index);
    }
    if (auto* list = qobject_cast<QListWidget*>(&control)) {
        RequireIndex(control, index, list->count());
        return PickListEntry(*list, index);
    }
    auto* pages = qobject_cast<QTabWidget*>(&control);
    auto* bar = pages ? pages->tabBar() : qobject_cast<QTabBar*>(&control);
    if (!bar) throw Refusal(u"'%1' has nothing to choose"_qs.arg(control.objectName()));
    RequireIndex(control, index, bar->count());
    PickTab(*bar, index);
}

void ClickControl(QWidget& control) {
    auto* button = qobject_cast<QAbstractButton*>(&control);
    if (!button) throw Refusal(u"'%1' is no button"_qs.arg(control.objectName()));
    button->click();
}

void PressKey(QWidget& control, const QString& key) {
    if (key.isEmpty()) throw Refusal(u"no key given"_qs);
    Focus(control);
    const QKeySequence named = QKeySequence::fromString(key, QKeySequence::PortableText);
    const bool isKey = key.size() > 1 && named.count() == 1 && named[0].key() != Qt::Key_unknown;
    if (!isKey) return Type(control, key);
    QTest::keyClick(&control, named[0].key(), named[0].keyboardModifiers());
}

QJsonObject DescribeControl(const QWidget& control) {
    QJsonObject fields{{u"enabled"_qs, control.isEnabled()}, {u"visible"_qs, control.isVisible()}};
    DescribeText(fields, control);
    DescribeChecked(fields, control);
    if (auto* combo = qobject_cast<const QComboBox*>(&control)) {
        DescribeList(fields, *combo, combo->count(), &QComboBox::itemText);
    } else if (auto* list = qobject_cast<const QListWidget*>(&control)) {
        DescribeListWidget(fields, *list);
    } else if (auto* pages = qobject_cast<const QTabWidget*>(&control)) {
        DescribeList(fields, *pages, pages->count(), &QTabWidget::tabText);
        fields[u"text"] = pages->tabText(pages->currentIndex());
    } else if (auto* bar = qobject_cast<const QTabBar*>(&control)) {
        DescribeList(fields, *bar, bar->count(), &QTabBar::tabText);
        fields[u"text"] = bar->tabText(bar->currentIndex());
    } else if (auto* status = qobject_cast<const QStatusBar*>(&control)) {
        DescribeStatusBar(fields, *status);
    }
    return fields;
}

}  // namespace ssq
