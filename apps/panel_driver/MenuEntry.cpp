#include "MenuEntry.h"

#include <QMenu>

namespace ssq {

QAction* FindMenuEntry(const QList<QAction*>& entries, const QString& name) {
    for (QAction* entry : entries) {
        const QMenu* submenu = entry->menu();
        if (entry->objectName() == name || entry->text() == name) return entry;
        if (!submenu) continue;
        if (submenu->objectName() == name) return entry;
        if (QAction* found = FindMenuEntry(submenu->actions(), name)) return found;
    }
    return nullptr;
}

QString MenuEntryFault(const QAction* entry, const QString& name) {
    if (!entry) return u"no menu entry '%1'"_qs.arg(name);
    if (entry->menu()) return u"'%1' is a menu, not an entry"_qs.arg(name);
    if (!entry->isVisible()) return u"menu entry '%1' is hidden"_qs.arg(name);
    if (!entry->isEnabled()) return u"menu entry '%1' is disabled"_qs.arg(name);
    return {};
}

}  // namespace ssq
