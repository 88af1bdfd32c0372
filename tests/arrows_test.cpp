// The floors of the house: which folders of src/ a folder may include from besides itself.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <string>

#include "support/paths.h"

namespace {

using Folders = std::set<std::string>;

Folders operator+(Folders a, const Folders& b) {
    a.insert(b.begin(), b.end());
    return a;
}

const Folders kGround{"base", "chance", "ui", "store", "draws", "formulas"};
// Panels live beside their analyses; the linker keeps the toolkit out of the analyses themselves.
const Folders kAnalysis = kGround + Folders{"ui/qt"};

const std::map<std::string, Folders> kAllowed = {
    {"base", {}},
    {"chance", {"base"}},
    {"ui", {"base"}},
    {"ui/xls", {"base", "ui"}},
    {"ui/qt", {"base", "ui", "ui/xls", "store", "draws"}},
    {"store", {"base", "ui"}},
    {"draws", {"base", "ui", "store"}},
    {"formulas", {"base", "ui", "store", "draws"}},
    {"acquire", kAnalysis},
    {"banker", kAnalysis},
    // Attributes of bets that the charts show under the same names are counted by their
    // calculators; plans take in what the wraps, the heat and the user's formulas name for the
    // next draw.
    {"bets", kAnalysis + Folders{"charts", "stats", "tools", "wrap"}},
    {"charts", kAnalysis},
    {"history", kAnalysis},
    {"kill", kAnalysis},
    {"stats", kAnalysis},
    {"tools", kAnalysis},
    {"workbench", kAnalysis},
    {"wrap", kAnalysis},
    // The blind test replays the methods of the others, each by the function its own panel calls.
    {"trial", kAnalysis + Folders{"banker", "bets", "kill", "stats", "tools", "workbench", "wrap"}},
    // The shell opens the panels and runs the commands of the menu.
    {"app", kAnalysis + Folders{"acquire", "banker", "bets", "charts", "history", "kill", "stats",
                                "tools", "trial", "workbench", "wrap"}},
};

// "store" of the line that includes "store/SqlConn.h"; empty for any other line.
std::string FolderOfInclude(const std::string& line) {
    const std::string start = "#include \"";
    const std::size_t slash = line.rfind('/');
    if (!line.starts_with(start) || slash == std::string::npos) return {};
    return line.substr(start.size(), slash - start.size());
}

TEST(Floors, IncludesOnlyGoDown) {
    namespace fs = std::filesystem;
    const fs::path src = ssq::SourceFolder() / "src";
    int includes = 0;
    for (const auto& entry : fs::recursive_directory_iterator(src)) {
        if (entry.path().extension() != ".h" && entry.path().extension() != ".cpp") continue;
        const std::string folder = entry.path().parent_path().lexically_relative(src).string();
        ASSERT_TRUE(kAllowed.contains(folder)) << "no floor is given for " << folder;
        std::ifstream file(entry.path());
        for (std::string line; std::getline(file, line);) {
            const std::string target = FolderOfInclude(line);
            if (target.empty()) continue;
            ++includes;
            EXPECT_TRUE(target == folder || kAllowed.at(folder).contains(target))
                << entry.path() << ": " << line;
        }
    }
    EXPECT_GT(includes, 100);
}

}  // namespace
