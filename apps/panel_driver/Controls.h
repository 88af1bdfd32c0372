// The ordinary controls of a panel, used as a user would. Each throws where a user could not do it.
#pragma once

#include "Json.h"

class QWidget;

namespace ssq {

// The control of that name in the panel; the panel's own name gives the panel.
QWidget& FindControl(QWidget& panel, const QString& name);

// The same, visible and enabled.
QWidget& FindUsableControl(QWidget& panel, const QString& name);

// The names of the panel's visible and enabled controls, each with its widget class.
Json ListControls(const QWidget& panel);

// Types or picks `value`; "1" and "0" for check boxes and options.
void SetControl(QWidget& control, const QString& value);

// Picks an entry or tab by position from 0.
void ChooseInControl(QWidget& control, int index);

void ClickControl(QWidget& control);

// A key by its name ("F1", "Delete", "Ctrl+C"), or plain characters to type.
void PressKey(QWidget& control, const QString& key);

// What the control shows: `text`, `enabled`, `visible`, `items`, `index`, `checked`, `panels`, as
// they apply.
Json DescribeControl(const QWidget& control);

}  // namespace ssq
