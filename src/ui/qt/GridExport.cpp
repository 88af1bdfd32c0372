#include "ui/qt/GridExport.h"

#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>

#include "draws/Public_var.h"
#include "ui/ClipText.h"
#include "ui/Host.h"
#include "ui/qt/Desktop.h"
#include "ui/qt/GridView.h"
#include "ui/qt/Qs.h"
#include "ui/xls/GridWorksheet.h"

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

void AddSelectionToPlan(const PanelContext& context, const GridView& view) {
    if (context.addToPlan) context.addToPlan(SelectionConditions(view.grid()));
}

void SaveGridAsExcel(const PanelContext& context, const GridView& view) {
    Desktop& desktop = context.desktop;
    const QString name = desktop.AskSaveFile(QStringLiteral("*.xls"));
    if (name.trimmed().isEmpty() || context.session.host.stopping()) return;
    const QString file = QFileInfo(name + QStringLiteral(".xls")).absoluteFilePath();
    const QString shown = QDir::toNativeSeparators(file);
    const QString title = QStringLiteral("提示");
    if (QFileInfo::exists(file) &&
        !desktop.Confirm(title, QStringLiteral("文件已经存在，要替换它吗？\n") + shown)) {
        return;
    }
    std::string reason;
    if (WriteWorksheet(view.grid(), file.toStdString(), reason)) {
        desktop.ShowBox(title, QStringLiteral("保存成功！"), shown);
    } else {
        desktop.ShowBox(title, QStringLiteral("保存失败！") + Qs(reason), shown);
    }
}

}  // namespace ssq
