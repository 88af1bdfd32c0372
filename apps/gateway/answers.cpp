#include "gateway/answers.h"

#include <algorithm>
#include <vector>

#include "base/text.h"
#include "gateway/DrawFile.h"
#include "gateway/pages.h"

namespace ssq {

namespace {

SiteDraw ListRow(const PublishedDraw& published) {
    const NewDraw& draw = published.draw;
    std::vector<std::string> reds;
    for (const int red : draw.balls) reds.push_back(TwoDigits(red));
    const std::vector<std::string> day = Split(draw.date, "-");
    return {std::to_string(draw.issue), day[0] + "年" + day[1] + "月" + day[2] + "日",
            Join(reds, ",") + "+" + TwoDigits(draw.blue),
            published.stake ? std::to_string(*published.stake) : ""};
}

std::string List(const DrawFile& file, const std::string& pagenum) {
    std::vector<SiteDraw> rows;
    if (pagenum == "1") {
        for (const PublishedDraw& draw : file.listed()) rows.push_back(ListRow(draw));
        std::ranges::reverse(rows);
    }
    return ListPage(rows);
}

std::string Notice(const PublishedDraw* draw) {
    if (!draw || !HasWholeNotice(*draw)) return UnpublishedNoticePage();
    std::array<SitePrize, kPrizeLevels> prizes;
    for (std::size_t level = 0; level < kPrizeLevels; ++level) {
        prizes[level] = {std::to_string(*draw->tickets[level]),
                         std::to_string(*draw->amounts[level])};
    }
    return NoticePage(std::to_string(*draw->stake), std::to_string(*draw->pool), prizes);
}

std::string Order(const PublishedDraw* draw) {
    if (!draw) return OrderPage({}, {}, {});
    return OrderPage(Split(draw->draw.drawn, ","), std::to_string(draw->draw.issue),
                     TwoDigits(draw->draw.blue));
}

std::string Sales(const DrawFile& file) {
    std::vector<SiteSales> issues;
    for (const PublishedDraw& draw : file.csv().draws) {
        if (draw.sales.empty()) continue;
        SiteSales sales{std::to_string(draw.draw.issue).substr(2), {}, {}};
        for (const int number : draw.sales) sales.numbers.push_back(TwoDigits(number));
        for (const int red : draw.draw.balls) sales.winners.push_back(TwoDigits(red));
        issues.push_back(std::move(sales));
    }
    return issues.empty() ? "<p>数据文件没有销售排行</p>" : SalesPage(issues);
}

}  // namespace

std::optional<std::string> Answer(const DrawFile& file, const std::string& path,
                                  const QueryValue& query) {
    if (path == kListPath) return List(file, query("pagenum"));
    if (path == kNoticePath) return Notice(file.Find(query("qishu")));
    if (path == kOrderPath) return Order(file.Find(query("drawBegin")));
    if (path == kSalesPath) return Sales(file);
    return std::nullopt;
}

}  // namespace ssq
