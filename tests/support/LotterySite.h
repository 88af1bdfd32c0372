// The pages that the updates read, in the sites' own markup, as UTF-8 text.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "support/PageServer.h"

namespace ssq {

struct SiteDraw {
    std::string issue;
    std::string date;     // 2009年01月04日
    std::string numbers;  // 01,02,03,04,05,06+07
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

// The order service's answer: the six reds in drawn order.
std::string OrderPage(const std::vector<std::string>& balls);

struct SiteSales {
    std::string issue;                 // 09012, or 当前期：09013
    std::vector<std::string> numbers;  // 33, from most to least bought
    std::vector<std::string> winners;
};

std::string SalesPage(const std::vector<SiteSales>& issues);

// 33 down to 01.
std::vector<std::string> DescendingNumbers();

// Pages of the list by number, from 1, as GBK, each after a delay; empty behind the last.
PageServer::Handler ListPages(std::vector<std::string> pages, std::chrono::milliseconds delay = {});

// One page, as GBK, whatever is asked.
PageServer::Handler Always(const std::string& page);

}  // namespace ssq
