// The red wrap of the whole history: pairs as patterns counted in the draws' texts, diagonal by
// diagonal, against bit sets over the pairs. Both give the same wraps.
#include <array>
#include <memory>
#include <string>
#include <vector>

#include "Ratio.h"
#include "base/Regex.h"
#include "base/combinations.h"
#include "base/text.h"
#include "draws/Draw.h"
#include "draws/Public_var.h"
#include "support/TestDatabase.h"
#include "ui/Run.h"
#include "wrap/RedWrap.h"

namespace {

using Texts = std::vector<std::string>;

// The literal form; positions count from 1 as in its rules.
class WrapByTexts {
  public:
    WrapByTexts() {
        Texts numbers;
        for (int number = 1; number <= 33; ++number) numbers.push_back(ssq::TwoDigits(number));
        pairs_ = ssq::ComboList2(ssq::Join(numbers, ","));
        pairs_.pop_back();
        for (const std::string& pair : pairs_) patterns_.emplace_back(ssq::Replace(pair, ",", "|"));
    }

    // One text a row: the accepted items joined by commas; the last one is the forecast's.
    Texts Run(const Texts& earlierNewestFirst, const Texts& draws) {
        std::array<std::string, 17> recent;
        for (std::size_t k = 1; k <= 16; ++k) recent[k] = earlierNewestFirst[k - 1];
        Texts column1{"开奖号码"};
        Texts wraps;
        for (std::size_t r = 1; r <= draws.size(); ++r) {
            column1.push_back(draws[r - 1]);
            if (r >= 2 && r <= 15) {
                for (std::size_t k = 16; k >= r; --k) recent[k] = recent[k - 1];
                for (std::size_t j = 1; j <= r - 1; ++j) recent[j] = column1[j];
            } else if (r > 16) {
                for (std::size_t k = 1; k <= 16; ++k) recent[k] = column1[r - k];
            }
            wraps.push_back(Scan(recent));
        }
        for (std::size_t k = 1; k <= 16; ++k) recent[k] = column1[draws.size() + 1 - k];
        wraps.push_back(Scan(recent));
        return wraps;
    }

  private:
    int RunOf(const std::array<std::string, 17>& recent, int i, int direction) {
        int run = 0;
        for (int j = 1; j <= 16; ++j) {
            const auto pair = static_cast<std::size_t>(i + direction * j);
            if (patterns_[pair].Count(recent[static_cast<std::size_t>(j)]) != 0U) break;
            ++run;
        }
        return run;
    }

    std::string Scan(const std::array<std::string, 17>& recent) {
        std::array<std::string, 17> buckets;
        for (int i = 0; i <= 510; ++i) {
            const int run = RunOf(recent, i, 1);
            if (run >= 5)
                buckets[static_cast<std::size_t>(run)] = pairs_[static_cast<std::size_t>(i)];
        }
        for (int i = 527; i >= 17; --i) {
            const int run = RunOf(recent, i, -1);
            if (run < 5) continue;
            std::string& bucket = buckets[static_cast<std::size_t>(run)];
            bucket =
                ssq::Replace(bucket + "," + pairs_[static_cast<std::size_t>(i)] + ",", ",,", ",");
        }
        std::string list;
        for (std::size_t k = 16; k >= 5; --k) {
            for (const std::string& item : ssq::Split(buckets[k], ",")) {
                if (!item.empty() && !ssq::Contains(list, item)) list += item + ",";
            }
        }
        Texts accepted;
        for (const std::string& item : ssq::Split(list, ",")) {
            if (accepted.size() < 18 && ssq::Trim(item).size() > 1) accepted.push_back(item);
        }
        return ssq::Join(accepted, ",");
    }

    Texts pairs_;
    std::vector<ssq::Regex> patterns_;
};

Texts WrapsOf(const ssq::ResultGrid& grid) {
    Texts wraps;
    for (int row = 1; row <= grid.rows() - 2; ++row) {
        Texts items;
        for (int col = 2; col < 20 && !grid.cell(row, col).empty(); ++col) {
            items.push_back(grid.cell(row, col));
        }
        wraps.push_back(ssq::Join(items, ","));
    }
    return wraps;
}

Texts RedsOf(const std::vector<ssq::Draw>& draws) {
    Texts texts;
    for (const ssq::Draw& draw : draws) texts.push_back(draw.reds);
    return texts;
}

}  // namespace

int main() {
    ssq::TestDatabase database = ssq::TestDatabase::Delivered();
    ssq::Session& session = database.session();
    WrapByTexts literal;
    // Short ranges, where the first rows and the heading are seen, and the whole history.
    for (const ssq::PeriodRange& range : {ssq::PeriodRange{"2003017", "2003031"},
                                          {"2003018", "2003033"},
                                          {"2013010", "2013026"},
                                          {"2003017", session.LatestIssue}}) {
        const Texts earlier = RedsOf(*ssq::ReadDrawsBefore(session, range.start, 16));
        const Texts draws = RedsOf(*ssq::ReadDraws(session, range));
        Texts expected;
        const double baseline = ssq::SecondsOf(1, [&] { expected = literal.Run(earlier, draws); });
        Texts wraps;
        const double seconds = ssq::SecondsOf(3, [&] {
            ssq::Run run(session.host);
            wraps = WrapsOf(ssq::BuildRedWrap(session, range, run)->grid);
        });
        const std::string what = "red wrap of " + std::to_string(draws.size()) + " draws";
        ssq::RequireEqual(wraps == expected, what);
        ssq::PrintRatio(what, baseline, seconds);
    }
    return 0;
}
