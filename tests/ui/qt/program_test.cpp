// What the program does towards other programs.
#include <gtest/gtest.h>

#include <QFile>
#include <QTest>
#include <fstream>
#include <future>

#include "app/Folders.h"
#include "app/OneProgram.h"
#include "support/TempFolder.h"
#include "ui/qt/Desktop.h"
#include "ui/qt/PanelContext.h"
#include "ui/qt/Qs.h"

namespace ssq {
namespace {

TEST(OneProgram, ASecondOneCallsTheFirstForward) {
    const TempFolder folder;
    std::filesystem::create_directory(folder.path() / "data");
    std::future<bool> answered;
    int calls = 0;
    {
        OneProgram first(folder.path());
        ASSERT_TRUE(first.isFirst());
        // One that does not listen yet, or waits for a page.
        const OneProgram second(folder.path());
        EXPECT_FALSE(second.isFirst());
        EXPECT_FALSE(second.CallFirst());
        first.Answer([&calls] { ++calls; });
        answered = std::async(std::launch::async, [&second] { return second.CallFirst(); });
        EXPECT_TRUE(QTest::qWaitFor([&calls] { return calls == 1; }));
        EXPECT_TRUE(answered.get());
    }
    EXPECT_TRUE(OneProgram(folder.path()).isFirst());
}

TEST(Folders, WhatIsBesideTheProgramComesFirstAndNothingIsOverwritten) {
    const TempFolder folder;
    const auto program = folder.path() / "program";
    const auto home = folder.path() / "home" / "ssq";
    std::filesystem::create_directories(program / "data");
    std::filesystem::create_directories(program / "delivered");
    EXPECT_EQ(ChooseFolders(program, home).user, program);  // with nothing to hand out

    folder.Write("program/delivered/ssq.mdb", "delivered");
    const Folders installed = ChooseFolders(program, home);
    EXPECT_EQ(installed.user, home);
    std::string errorText;
    for (const char* text : {"delivered", "the user's"}) {
        EXPECT_TRUE(LayDelivered(installed, errorText)) << errorText;
        std::ifstream laid(home / "data" / "ssq.mdb");
        EXPECT_EQ(std::string(std::istreambuf_iterator<char>(laid), {}), text);
        folder.Write("home/ssq/data/ssq.mdb", "the user's");
    }
    // A file stands in the way of the folder.
    const auto blocked = folder.Write("blocked", "");
    EXPECT_FALSE(LayDelivered(ChooseFolders(program, blocked), errorText));
    EXPECT_EQ(errorText.find("无法把数据放到"), 0U) << errorText;

    folder.Write("program/data/ssq.mdb", "the user's");
    EXPECT_EQ(ChooseFolders(program, home).user, program);
}

TEST(SystemDesktop, HandsArgumentsOverWithTheirBlanks) {
    const TempFolder folder;
    const QString script = Qs((folder.path() / "Update.exe").string());
    folder.Write("Update.exe",
                 "#!/bin/sh\nprintf '[%s]' \"$@\" > \"$0.part\"\nmv \"$0.part\" \"$0.told\"\n");
    QFile::setPermissions(script, QFile::ReadOwner | QFile::ExeOwner);
    SystemDesktop().StartProgram(script, QStringLiteral("/SilentCheck  /NoIcon "));
    QFile told(script + QStringLiteral(".told"));
    ASSERT_TRUE(QTest::qWaitFor([&told] { return told.exists(); }));
    ASSERT_TRUE(told.open(QFile::ReadOnly));
    EXPECT_EQ(told.readAll().toStdString(), "[/SilentCheck  /NoIcon ]");
}

}  // namespace
}  // namespace ssq
