#include "ui/qt/GridExport.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>
#include <QPdfWriter>
#include <QPrinter>
#include <QSaveFile>

#include "draws/Public_var.h"
#include "ui/ClipText.h"
#include "ui/Host.h"
#include "ui/qt/Desktop.h"
#include "ui/qt/GridPicture.h"
#include "ui/qt/GridView.h"
#include "ui/qt/Qs.h"
#include "ui/xls/GridWorksheet.h"

namespace ssq {

namespace {

// Painting a long grid takes seconds.
class BusyPointer {
  public:
    BusyPointer() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;
    ~BusyPointer() { QApplication::restoreOverrideCursor(); }
};

QString TitleOf(const GridView& view) {
    return view.window()->windowTitle().trimmed();
}

QString AskFor(const PanelContext& context, const QString& title, const char* ending) {
    const QString end = QString::fromUtf8(ending);
    return AskFileToWrite(context, {u'*' + end, end, ProposedName(context, title) + end});
}

// What stands in the file when all went well.
bool Commit(QSaveFile& file, QString& reason) {
    if (file.commit()) return true;
    reason = file.errorString();
    return false;
}

bool WriteBytes(const QString& name, const QByteArray& bytes, QString& reason) {
    QSaveFile file(name);
    if (!file.open(QIODevice::WriteOnly)) {
        reason = file.errorString();
        return false;
    }
    file.write(bytes);
    return Commit(file, reason);
}

bool PrintView(QPagedPaintDevice& device, const PanelContext& context, const GridView& view) {
    const BusyPointer busy;
    return PrintOn(device, view.logicalDpiX(), view.shown(), view.Look(),
                   ProposedName(context, TitleOf(view)));
}

}  // namespace

void PutOnClipboard(const std::string& text) {
    QGuiApplication::clipboard()->setText(Qs(text));
}

void CopySelection(const GridView& view) {
    const auto rows = view.SelectedRows();
    PutOnClipboard(SelectionText(view.grid(), rows));
    const int cols = std::abs(view.grid().colSel() - view.grid().col()) + 1;
    view.Tell(rows.empty() ? QStringLiteral("没有选中的内容")
                           : QStringLiteral("已复制 %1 行 × %2 列").arg(rows.size()).arg(cols));
}

void CopySelectionAsCondition(const GridView& view) {
    const auto rows = view.SelectedRows();
    PutOnClipboard(SelectionConditions(view.grid(), rows));
    view.Tell(rows.empty() ? QStringLiteral("没有选中的内容")
                           : QStringLiteral("已复制 %1 行条件").arg(rows.size()));
}

void AddSelectionToPlan(const PanelContext& context, const GridView& view) {
    if (!context.addToPlan) return;
    context.addToPlan(SelectionConditions(view.grid(), view.SelectedRows()));
}

void CopyTable(const GridView& view) {
    constexpr std::size_t kMostHtmlCells = 100'000;  // more take a spreadsheet minutes
    const auto rows = view.SelectedRows();
    if (rows.empty()) return view.Tell(QStringLiteral("没有选中的内容"));
    const TablePart part = SelectedTable(view.grid(), rows);
    auto* data = new QMimeData;
    data->setText(Qs(TabbedText(view.grid(), part)));
    if (part.rows.size() * part.cols.size() <= kMostHtmlCells) {
        data->setHtml(Qs(HtmlTable(view.grid(), part)));
    }
    QGuiApplication::clipboard()->setMimeData(data);
    view.Tell(QStringLiteral("已带标题复制 %1 行 × %2 列").arg(part.bodyRows).arg(part.bodyCols));
}

QString ProposedName(const PanelContext& context, const QString& title) {
    QString name = title;
    for (QChar& c : name) {
        if (c < u' ' || QStringLiteral("\\/:*?\"<>|").contains(c)) c = u'_';
    }
    const std::string& issue = context.session.LatestIssue;
    return issue.empty() ? name : name + u'_' + Qs(issue);
}

QString AskFileToWrite(const PanelContext& context, const FileWish& wish) {
    Desktop& desktop = context.desktop;
    QString name = desktop.AskSaveFile(wish.pattern, wish.proposed);
    if (name.trimmed().isEmpty() || context.session.host.stopping()) return {};
    if (wish.endsAlways || QFileInfo(name).suffix().isEmpty()) name += wish.ending;
    QString file = QFileInfo(name).absoluteFilePath();
    if (QFileInfo::exists(file) &&
        !desktop.Confirm(QStringLiteral("提示"), QStringLiteral("文件已经存在，要替换它吗？\n") +
                                                     QDir::toNativeSeparators(file))) {
        return {};
    }
    return file;
}

void TellSaved(const PanelContext& context, const QString& file, bool saved,
               const QString& reason) {
    context.desktop.ShowBox(
        QStringLiteral("提示"),
        saved ? QStringLiteral("保存成功！") : QStringLiteral("保存失败！") + reason,
        QDir::toNativeSeparators(file));
}

void SaveGridAsExcel(const PanelContext& context, const GridView& view) {
    const QString file = AskFileToWrite(context, {QStringLiteral("*.xls"), QStringLiteral(".xls"),
                                                  ProposedName(context, TitleOf(view)), true});
    if (file.isEmpty()) return;
    std::string reason;
    const bool saved = WriteWorksheet(view.grid(), file.toStdString(), reason);
    TellSaved(context, file, saved, Qs(reason));
}

void SaveGridAsCsv(const PanelContext& context, const GridView& view) {
    const QString file = AskFor(context, TitleOf(view), ".csv");
    if (file.isEmpty()) return;
    const ResultGrid& grid = view.grid();
    QString reason;
    const bool saved =
        WriteBytes(file, QByteArray::fromStdString(CsvText(grid, WholeTable(grid))), reason);
    TellSaved(context, file, saved, reason);
}

void SavePicture(const PanelContext& context, const QString& title,
                 const std::function<QImage()>& paint) {
    const QString file = AskFor(context, title, ".png");
    if (file.isEmpty()) return;
    QString reason;
    bool saved = false;
    {
        const BusyPointer busy;
        const QImage picture = paint();
        QSaveFile out(file);
        if (picture.isNull()) {
            reason = QStringLiteral("表格太大，存不成一张图片。");
        } else if (!out.open(QIODevice::WriteOnly)) {
            reason = out.errorString();
        } else {
            picture.save(&out, "PNG");
            saved = Commit(out, reason);
        }
    }
    TellSaved(context, file, saved, reason);
}

void SaveGridAsPicture(const PanelContext& context, const GridView& view) {
    SavePicture(context, TitleOf(view), [&view] { return PictureOf(view.shown(), view.Look()); });
}

void SaveGridAsPdf(const PanelContext& context, const GridView& view) {
    const QString file = AskFor(context, TitleOf(view), ".pdf");
    if (file.isEmpty()) return;
    QSaveFile out(file);
    QString reason;
    bool saved = out.open(QIODevice::WriteOnly);
    if (saved) {
        QPdfWriter writer(&out);
        writer.setResolution(view.logicalDpiX());
        saved = PrintView(writer, context, view) && Commit(out, reason);
    } else {
        reason = out.errorString();
    }
    TellSaved(context, file, saved, reason);
}

void PrintGrid(const PanelContext& context, const GridView& view) {
    QPrinter printer;
    printer.setDocName(ProposedName(context, TitleOf(view)));
    if (!context.desktop.AskPrinter(printer) || context.session.host.stopping()) return;
    printer.setResolution(view.logicalDpiX());
    if (!PrintView(printer, context, view)) {
        context.desktop.ShowBox(QStringLiteral("提示"), QStringLiteral("打印失败！"), {});
    }
}

}  // namespace ssq
