#include "ui/qt/GridCopy.h"

#include <QClipboard>
#include <QGuiApplication>

#include "ui/ClipText.h"
#include "ui/qt/GridView.h"
#include "ui/qt/PanelContext.h"

namespace ssq {

void PutOnClipboard(const std::string& text) {
    QGuiApplication::clipboard()->setText(Qs(text));
}

void CopySelection(const GridView& view) {
    PutOnClipboard(SelectionText(view.grid()));
}

void CopySelectionAsCondition(const GridView& view) {
    PutOnClipboard(SelectionConditions(view.grid()));
}

}  // namespace ssq
