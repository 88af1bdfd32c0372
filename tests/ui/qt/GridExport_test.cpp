#include "ui/qt/GridExport.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

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

}  // namespace
}  // namespace ssq
