#include "app/files.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "support/TestDatabase.h"

namespace ssq {
namespace {

namespace fs = std::filesystem;

std::string Content(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

class Files : public testing::Test {
  protected:
    auto FilesInFolder() const {
        return std::distance(fs::directory_iterator(folder_), fs::directory_iterator());
    }

    TempFolder temporary_;
    fs::path folder_ = temporary_.path();
    TestHost host_;
};

TEST_F(Files, ATextIsWrittenAsItIsOverWhatStoodThere) {
    const fs::path file = folder_ / "公式.dmgs";
    EXPECT_TRUE(WriteTextFile(host_, file, "a1+a2\r\n红球\n"));
    EXPECT_EQ(Content(file), "a1+a2\r\n红球\n");
    EXPECT_TRUE(WriteTextFile(host_, file, "短"));
    EXPECT_EQ(Content(file), "短");
    EXPECT_EQ(FilesInFolder(), 1);
    EXPECT_TRUE(host_.Texts().empty());
}

TEST_F(Files, ALinkStaysALink) {
    fs::create_symlink(folder_ / "target", folder_ / "link");
    std::ofstream(folder_ / "target") << "old";
    EXPECT_TRUE(WriteTextFile(host_, folder_ / "link", "new"));
    EXPECT_TRUE(fs::is_symlink(folder_ / "link"));
    EXPECT_EQ(Content(folder_ / "target"), "new");
}

TEST_F(Files, AFailureIsToldAndLeavesNothingBehind) {
    fs::create_directory(folder_ / "d");
    EXPECT_FALSE(WriteTextFile(host_, folder_ / "none" / "a.txt", "text"));
    EXPECT_FALSE(WriteTextFile(host_, folder_ / "d", "text"));
    EXPECT_FALSE(WriteTextFile(host_, folder_ / std::string(300, 'n'), "text"));
    EXPECT_FALSE(WriteTextFile(host_, "/dev/full", "text"));
    const std::vector<std::string> expected = {
        "写入文件时出错！文件夹不存在。", "写入文件时出错！同名的文件夹已存在。",
        "写入文件时出错！文件名太长。", "写入文件时出错！没有写入权限。"};
    EXPECT_EQ(host_.Texts(), expected);
    EXPECT_EQ(FilesInFolder(), 1);
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
}

// A file size limit stands in for a full disk: the write fails halfway.
class SizeLimit {
  public:
    explicit SizeLimit(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{bytes, before_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    SizeLimit(const SizeLimit&) = delete;
    SizeLimit& operator=(const SizeLimit&) = delete;
    ~SizeLimit() {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }

  private:
    rlimit before_{};
    void (*handler_)(int);
};

TEST_F(Files, AFullDiskKeepsTheOldFileWhole) {
    const fs::path file = folder_ / "a.txt";
    ASSERT_TRUE(WriteTextFile(host_, file, "old"));
    {
        const SizeLimit limit(4096);
        EXPECT_FALSE(WriteTextFile(host_, file, std::string(10000, 'x')));
    }
    EXPECT_EQ(Content(file), "old");
    EXPECT_EQ(FilesInFolder(), 1);
    EXPECT_EQ(host_.Texts(), std::vector<std::string>{"写入文件时出错！磁盘空间不足。"});
}

}  // namespace
}  // namespace ssq
