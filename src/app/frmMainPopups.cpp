#include "app/frmMainPopups.h"

#include <QMenu>
#include <cmath>

#include "app/frmMainMenu.h"
#include "charts/MainTrendChart.h"
#include "ui/qt/Desktop.h"
#include "ui/qt/GridExport.h"
#include "ui/qt/GridView.h"

namespace ssq {

namespace {

// In the grid of kill numbers six columns belong to a group, behind two for the draw and before two
// for the verdict. Counted from 0.
int LastKillGroup(const ResultGrid& grid) {
    return static_cast<int>(std::lround((grid.cols() - 4) / 6.0 - 1));
}

void Run(PopupAction action, GridView& view) {
    switch (action) {
        case PopupAction::kCopySelection:
            return CopySelection(view);
        case PopupAction::kCopyKillConditions:
            return CopyKillConditions(view, LastKillGroup(view.grid()));
        case PopupAction::kHideNumbers:
            return view.Edit([](ResultGrid& grid) { HideNumbers(grid, true); });
        case PopupAction::kShowNumbers:
            return view.Edit([](ResultGrid& grid) { HideNumbers(grid, false); });
    }
}

void Raise(Desktop& desktop, const PopupMenu& popup, GridView& view, const QPoint& place) {
    QMenu menu(QString::fromUtf8(popup.caption), &view);
    menu.setObjectName(QString::fromUtf8(popup.control));
    for (const PopupEntry& entry : popup.entries) {
        QAction* action = menu.addAction(QString::fromUtf8(entry.caption));
        action->setObjectName(QString::fromUtf8(entry.control));
        QObject::connect(action, &QAction::triggered, &view,
                         [&view, run = entry.action] { Run(run, view); });
    }
    desktop.RaisePopup(menu, place);
}

}  // namespace

void AttachPopup(const PanelContext& context, QWidget& panel) {
    for (const PopupMenu& popup : PopupMenus()) {
        if (panel.objectName() != QString::fromUtf8(popup.panel)) continue;
        auto* view = panel.findChild<GridView*>(QStringLiteral("vs1"));
        view->onPopup = [&desktop = context.desktop, &popup, view](const QPoint& place) {
            Raise(desktop, popup, *view, place);
        };
    }
}

}  // namespace ssq
