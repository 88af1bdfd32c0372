#include "ui/TextFile.h"
#include "base/files.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <fstream>
#include <iterator>

#include "support/TempFolder.h"
#include "support/TestHost.h"

namespace ssq {
namespace {

namespace fs = std::filesystem;

class Files : public testing::Test {
  protected:
    static std::string Content(const fs::path& file) {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
    auto Count() const {
        return std::distance(fs::directory_iterator(folder_.path()), fs::directory_iterator());
    }

    TempFolder folder_;
    TestHost host_;
};

TEST_F(Files, ATextReplacesWhatStoodThereOrTheFailureIsTold) {
    const fs::path file = folder_.Write("公式.dmgs", "a longer old text");
    const fs::path link = folder_.path() / "link";
    fs::create_symlink(file, link);
    EXPECT_TRUE(WriteTextFile(host_, link, "a1+a2\r\n红球\n"));
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(Content(file), "a1+a2\r\n红球\n");
    for (const auto& [bad, reason] : std::vector<std::pair<fs::path, std::string>>{
             {folder_.path() / "none" / "a.txt", "文件夹不存在。"},
             {folder_.path(), "同名的文件夹已存在。"},
             {folder_.path() / std::string(300, 'n'), "文件名太长。"},
             {"/dev/full", "没有写入权限。"}}) {
        EXPECT_FALSE(WriteTextFile(host_, bad, "text"));
        EXPECT_EQ(host_.Texts().back(), "写入文件时出错！" + reason);
    }
    EXPECT_EQ(Count(), 2);
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
}

// A file size limit stands in for a full disk: the write fails halfway.
TEST_F(Files, AFullDiskKeepsTheOldFileWhole) {
    const fs::path file = folder_.Write("a.txt", "old");
    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit limit{4096, before.rlim_max};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    ::setrlimit(RLIMIT_FSIZE, &limit);
    EXPECT_FALSE(WriteTextFile(host_, file, std::string(10000, 'x')));
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(Content(file), "old");
    EXPECT_EQ(Count(), 1);
    EXPECT_EQ(host_.Texts(), std::vector<std::string>{"写入文件时出错！磁盘空间不足。"});
}

}  // namespace
}  // namespace ssq
