#include "support/LotterySite.h"

#include "base/text.h"

namespace ssq {

std::vector<std::string> DescendingNumbers() {
    std::vector<std::string> numbers;
    for (int n = 33; n >= 1; --n) numbers.push_back(TwoDigits(n));
    return numbers;
}

PageServer::Handler ListPages(std::vector<std::string> pages, std::chrono::milliseconds delay) {
    for (std::string& page : pages) page = Gbk(page);
    return [pages = std::move(pages), delay](const std::string& query) {
        const std::size_t number = std::stoul(query.substr(query.find('=') + 1));
        return PageReply{.body = number <= pages.size() ? pages[number - 1] : "", .delay = delay};
    };
}

PageServer::Handler Always(const std::string& page) {
    return [reply = PageReply{Gbk(page)}](const std::string&) { return reply; };
}

}  // namespace ssq
