// Entries of the menu bar and of popups by name.
#pragma once

#include <QAction>
#include <QList>
#include <QString>

namespace ssq {

// The entry of that object name or text, submenus included; a submenu's own entry also goes by
// the submenu's object name. Null when there is none.
QAction* FindMenuEntry(const QList<QAction*>& entries, const QString& name);

// Why a user could not choose the entry; empty when he could.
QString MenuEntryFault(const QAction* entry, const QString& name);

}  // namespace ssq
