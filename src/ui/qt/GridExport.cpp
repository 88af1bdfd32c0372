#include "ui/qt/GridExport.h"

#include <string>

#include "draws/Public_var.h"
#include "ui/Host.h"
#include "ui/qt/Desktop.h"
#include "ui/qt/GridView.h"
#include "ui/xls/GridWorksheet.h"

namespace ssq {

void SaveGridAsExcel(const PanelContext& context, const GridView& view) {
    const QString name = context.desktop.AskSaveFile(QStringLiteral("*.xls"));
    if (name.trimmed().isEmpty()) return;
    std::string reason;
    const std::string file = (name + QStringLiteral(".xls")).toStdString();
    const bool saved = WriteWorksheet(view.grid(), file, reason);
    context.session.host.ShowMessage(saved ? "保存成功！" : "保存失败！" + reason);
}

}  // namespace ssq
