#include "ui/qt/GridExport.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDir>

#include "draws/Public_var.h"
#include "panel_driver/ScriptDesktop.h"
#include "support/TempFolder.h"
#include "support/TestHost.h"
#include "ui/qt/GridView.h"

namespace ssq {
namespace {

TEST(SaveGridAsExcel, AppendsTheEndingAndTellsTheOutcome) {
    const TempFolder folder;
    const QDir files(QString::fromStdString(folder.path().string()));
    TestHost host;
    Session session{host, folder.path()};
    ScriptDesktop desktop;
    GridView view;
    view.SetGrid(ResultGrid(3, 3, 1, 1));
    for (const QString& answer :
         {QString(), QStringLiteral("  "), files.filePath(QStringLiteral("none/a")),
          files.filePath(QStringLiteral("遗漏.xls"))}) {
        desktop.AnswerFileDialog(answer);
        SaveGridAsExcel({session, desktop}, view);
    }
    EXPECT_THAT(host.Texts(), testing::ElementsAre("保存失败！文件夹不存在。", "保存成功！"));
    EXPECT_EQ(files.entryList(QDir::Files), QStringList{QStringLiteral("遗漏.xls.xls")});
}

}  // namespace
}  // namespace ssq
