#include "ui/qt/GridExport.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

#include "app/Public_var.h"
#include "support/TestDatabase.h"
#include "ui/qt/Desktop.h"
#include "ui/qt/GridView.h"

namespace ssq {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Answers the save dialog; nothing else is asked of it here.
class SavingDesktop final : public Desktop {
  public:
    QString AskSaveFile(const QString& pattern) override {
        askedPattern = pattern;
        return answer;
    }
    void ShowBox(const QString&, const QString&) override {}
    bool Confirm(const QString&, const QString&) override { return false; }
    QString AskOpenFile(const QString&) override { return {}; }
    void Open(const QString&) override {}
    void StartProgram(const QString&, const QString&) override {}
    void RaisePopup(QMenu&, const QPoint&) override {}

    QString answer;
    QString askedPattern;
};

class SaveGrid : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_TRUE(folder_.isValid());
        view_.SetGrid(ResultGrid(3, 3, 1, 1));
    }

    void Save(const QString& answer) {
        desktop_.answer = answer;
        SaveGridAsExcel({session_, desktop_}, view_);
    }
    QStringList Files() const { return QDir(folder_.path()).entryList(QDir::Files); }

    QTemporaryDir folder_;
    TestHost host_;
    Session session_{host_, folder_.path().toStdString()};
    SavingDesktop desktop_;
    GridView view_;
};

TEST_F(SaveGrid, AlwaysAppendsTheEnding) {
    Save(folder_.filePath(QStringLiteral("遗漏.xls")));
    EXPECT_EQ(desktop_.askedPattern, QStringLiteral("*.xls"));
    EXPECT_EQ(Files(), QStringList{QStringLiteral("遗漏.xls.xls")});
    EXPECT_THAT(host_.Texts(), ElementsAre("保存成功！"));
}

TEST_F(SaveGrid, ABlankNameStopsWithoutAWord) {
    Save({});
    Save(QStringLiteral("  "));
    EXPECT_THAT(host_.Texts(), IsEmpty());
}

TEST_F(SaveGrid, TellsWhyItFailed) {
    Save(folder_.filePath(QStringLiteral("none/a")));
    EXPECT_THAT(host_.Texts(), ElementsAre("保存失败！文件夹不存在。"));
    EXPECT_THAT(Files(), IsEmpty());
}

}  // namespace
}  // namespace ssq
