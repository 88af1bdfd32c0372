#include "ui/qt/GridExport.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>

#include "base/text.h"
#include "draws/Public_var.h"
#include "panel_driver/ScriptDesktop.h"
#include "support/TempFolder.h"
#include "support/TestHost.h"
#include "ui/qt/GridView.h"
#include "ui/qt/Qs.h"

namespace ssq {
namespace {

TEST(SaveGridAsExcel, AsksBeforeItReplacesAndTellsTheOutcomeWithThePath) {
    const TempFolder folder;
    const QDir files(Qs(folder.path().string()));
    folder.Write("旧.xls", "old");
    TestHost host;
    Session session{host, folder.path()};
    ScriptDesktop desktop;
    GridView view;
    view.SetGrid(ResultGrid(3, 3, 1, 1));
    const auto save = [&](const char* name, bool replace) {
        desktop.AnswerFileDialog(files.filePath(QString::fromUtf8(name)));
        desktop.AnswerQuestion(replace);
        SaveGridAsExcel({session, desktop}, view);
        std::string told;
        for (const auto& box : desktop.TakeMessages()) {
            told += box.value("text", "") + box.value("note", "");
        }
        return Replace(told, files.path().toStdString(), "F");
    };
    EXPECT_EQ(save("旧", false), "文件已经存在，要替换它吗？\nF/旧.xls");
    EXPECT_EQ(save("遗漏.xls", true), "保存成功！F/遗漏.xls.xls");
    EXPECT_EQ(save("none/a", true), "保存失败！文件夹不存在。F/none/a.xls");
    for (const char* blank : {"", "  "}) {
        desktop.AnswerFileDialog(QString::fromUtf8(blank));
        SaveGridAsExcel({session, desktop}, view);
    }
    EXPECT_TRUE(desktop.TakeMessages().empty());
    EXPECT_EQ(files.entryList(QDir::Files),
              (QStringList{QStringLiteral("旧.xls"), QStringLiteral("遗漏.xls.xls")}));
    EXPECT_EQ(QFile(files.filePath(QStringLiteral("旧.xls"))).size(), 3);
}

TEST(SaveGrid, WritesTablesPicturesAndPages) {
    const TempFolder folder;
    const QDir files(Qs(folder.path().string()));
    TestHost host;
    Session session{host, folder.path()};
    session.LatestIssue = "2026114";
    ScriptDesktop desktop;
    GridView view;
    view.setWindowTitle(QStringLiteral(" 甲|乙"));
    EXPECT_EQ(ProposedName({session, desktop}, QStringLiteral("甲|乙")).toStdString(),
              "甲_乙_2026114");
    ResultGrid grid(400, 3, 1, 1);
    grid.SetAllRowHeights(300);
    grid.SetColWidths(0, 2, 1500);
    grid.SetCell(399, 2, "最后");
    view.SetGrid(std::move(grid));
    const auto save = [&](const char* name, auto action) {
        desktop.AnswerFileDialog(files.filePath(QString::fromUtf8(name)));
        action(PanelContext{session, desktop}, view);
        EXPECT_EQ(desktop.TakeMessages().at(0).value("text", ""), "保存成功！");
        QFile file(files.filePath(QString::fromUtf8(name)));
        if (!file.exists()) file.setFileName(file.fileName() + QStringLiteral(".csv"));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
        return file.readAll();
    };
    EXPECT_TRUE(save("a", SaveGridAsCsv).endsWith(",,最后\r\n"));
    EXPECT_EQ(QImage::fromData(save("a.png", SaveGridAsPicture)).size(), QSize(300, 8000));
    const QByteArray pages = save("a.pdf", SaveGridAsPdf);
    // 7980 pixels of rows below a heading of 20; a page of A4 has room for 1024 of both.
    EXPECT_EQ(pages.count("/Type /Page\n"), 8);
}

}  // namespace
}  // namespace ssq
