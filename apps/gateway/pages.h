// The four pages in the form that the updates read, as UTF-8 text: the one place that knows how
// they are written. Values go in as they are.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace ssq {

// Where the sites keep the pages, and the query keys that name what is asked for.
inline constexpr const char* kListPath = "/zjfc/asp_ssq.asp";         // pagenum
inline constexpr const char* kNoticePath = "/zjfc/06asp_gg_ssq.asp";  // qishu
inline constexpr const char* kOrderPath = "/trend/analysessq.do";     // drawBegin, drawEnd
inline constexpr const char* kSalesPath = "/pages/info/ssq/inc/red_fsfx_inc.php";  // expect

struct SiteDraw {
    std::string issue;
    std::string date;     // 2009年01月04日
    std::string numbers;  // 01,02,03,04,05,06+07
    std::string stake = "160,000,000";
};

// A page of the list of draws, newest first.
std::string ListPage(const std::vector<SiteDraw>& draws);

struct SitePrize {
    std::string tickets;
    std::string amount;
};

// The prize notice of a draw.
std::string NoticePage(const std::string& stake, const std::string& pool,
                       const std::array<SitePrize, 6>& prizes);

// The notice of a draw that has none yet.
std::string UnpublishedNoticePage();

// The order service's answer: the six reds in drawn order, none while they are not known.
std::string OrderPage(const std::vector<std::string>& balls, const std::string& issue = "2009001",
                      const std::string& blue = "16");

struct SiteSales {
    std::string issue;                 // 09012, or 当前期：09013
    std::vector<std::string> numbers;  // 33, from most to least bought
    std::vector<std::string> winners;
};

std::string SalesPage(const std::vector<SiteSales>& issues);

}  // namespace ssq
