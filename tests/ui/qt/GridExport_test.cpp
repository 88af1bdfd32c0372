#include "ui/qt/GridExport.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDir>

#include "app/Public_var.h"
#include "support/TempFolder.h"
#include "support/TestHost.h"
#include "ui/qt/Desktop.h"
#include "ui/qt/GridView.h"

namespace ssq {
namespace {

// Answers the save dialog; nothing else is asked of it here.
struct SavingDesktop final : Desktop {
    QString AskSaveFile(const QString& pattern) override {
        EXPECT_EQ(pattern, QStringLiteral("*.xls"));
        return answer;
    }
    void ShowBox(const QString&, const QString&) override {}
    bool Confirm(const QString&, const QString&) override { return false; }
    QString AskOpenFile(const QString&) override { return {}; }
    void Open(const QString&) override {}
    void StartProgram(const QString&, const QString&) override {}
    void RaisePopup(QMenu&, const QPoint&) override {}

    QString answer;
};

TEST(SaveGridAsExcel, AppendsTheEndingAndTellsTheOutcome) {
    const TempFolder folder;
    const QDir files(QString::fromStdString(folder.path().string()));
    TestHost host;
    Session session{host, folder.path()};
    SavingDesktop desktop;
    GridView view;
    view.SetGrid(ResultGrid(3, 3, 1, 1));
    for (const QString& answer :
         {QString(), QStringLiteral("  "), files.filePath(QStringLiteral("none/a")),
          files.filePath(QStringLiteral("遗漏.xls"))}) {
        desktop.answer = answer;
        SaveGridAsExcel({session, desktop}, view);
    }
    EXPECT_THAT(host.Texts(), testing::ElementsAre("保存失败！文件夹不存在。", "保存成功！"));
    EXPECT_EQ(files.entryList(QDir::Files), QStringList{QStringLiteral("遗漏.xls.xls")});
}

}  // namespace
}  // namespace ssq
