#include "ui/qt/GridExport.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QJsonObject>

#include "draws/Public_var.h"
#include "panel_driver/ScriptDesktop.h"
#include "support/TempFolder.h"
#include "support/TestHost.h"
#include "ui/qt/GridView.h"

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
    const QString question = QStringLiteral("文件已经存在，要替换它吗？\n");
    struct Case {
        QString name;
        bool replace;
        QString texts;  // of the boxes
    };
    for (const Case& c : std::vector<Case>{
             {{}, true, {}},
             {QStringLiteral("  "), true, {}},
             {files.filePath(QStringLiteral("none/a")), true,
              QStringLiteral("保存失败！文件夹不存在。")},
             {files.filePath(QStringLiteral("旧")), false,
              question + files.filePath(QStringLiteral("旧.xls"))},
             {files.filePath(QStringLiteral("遗漏.xls")), true, QStringLiteral("保存成功！")},
         }) {
        desktop.AnswerFileDialog(c.name);
        if (!c.replace) desktop.AnswerQuestion(false);
        SaveGridAsExcel({session, desktop}, view);
        QString texts;
        for (const QJsonValue box : desktop.TakeMessages()) {
            texts += box[u"text"].toString();
            const QString note = c.replace ? c.name + QStringLiteral(".xls") : QString();
            EXPECT_EQ(box[u"note"].toString(), note);
        }
        EXPECT_EQ(texts, c.texts);
    }
    EXPECT_EQ(files.entryList(QDir::Files),
              (QStringList{QStringLiteral("旧.xls"), QStringLiteral("遗漏.xls.xls")}));
    EXPECT_EQ(QFile(files.filePath(QStringLiteral("旧.xls"))).size(), 3);
}

}  // namespace
}  // namespace ssq
