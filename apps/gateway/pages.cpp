#include "gateway/pages.h"

#include <algorithm>

namespace ssq {

std::string ListPage(const std::vector<SiteDraw>& draws) {
    std::string page =
        "<html><body><table>\r\n<tr><td><font><strong>投注额</strong></font></td>\r\n</tr>\r\n";
    for (const SiteDraw& draw : draws) {
        page += "<TR align=\"center\">\r\n<td ><a href=\"06asp_gg_ssq.asp?qishu=" + draw.issue +
                "\">" + draw.date + "</A></td>\r\n<TD> " + draw.issue + " </td>\r\n<td>" +
                draw.numbers + "</td>\r\n<td>" + draw.stake + "</td>\r\n</tr>\r\n";
    }
    return page + "</table></body></html>";
}

std::string NoticePage(const std::string& stake, const std::string& pool,
                       const std::array<SitePrize, 6>& prizes) {
    const std::array names = {"一", "二", "三", "四", "五", "六"};
    std::string page = "<p><strong> 投注总额 </strong>" + stake + " 元</p>\r\n<p>未中出奖金" +
                       pool + "元</p>\r\n<table>\r\n" +
                       "<tr align=center bgcolor=\"#FE6601\" class=\"px12 line18\">\r\n" +
                       "<td>奖级</td><td>条件</td><td>数目</td><td>金额</td></tr>\r\n";
    for (std::size_t level = 0; level < prizes.size(); ++level) {
        const std::string border =
            level + 1 < prizes.size() ? "1px 0px 0px 1px" : "1px 0px 1px 1px";
        const std::string cell = "<td style=\"border-width:" + border + ";\">";
        page += "<tr>" + cell + names[level] + "等奖</td>" + cell + "6+1</td>\r\n" + cell +
                prizes[level].tickets + "注</td><td style=\"border-width:1px 1px 0px 1px;\">" +
                prizes[level].amount + "元/注</td></tr>\r\n";
    }
    return page + "</table>";
}

std::string UnpublishedNoticePage() {
    const SitePrize none{"0", "0"};
    return NoticePage("0", "0", {none, none, none, none, none, none});
}

std::string OrderPage(const std::vector<std::string>& balls, const std::string& issue,
                      const std::string& blue) {
    std::string page =
        "<table><tr><td>期号</td><td>蓝球号码</td></tr>\r\n<tr><td>1</td>\r\n"
        "<td>" +
        issue + "</td>";
    for (const std::string& ball : balls) page += "<td class=\"b\"> " + ball + " </td>\r\n";
    return page + "<td>" + blue + "</td></tr></table>";
}

std::string SalesPage(const std::vector<SiteSales>& issues) {
    std::string page = "<table>";
    for (const SiteSales& sales : issues) {
        page += "<tr class=\"tr1\" id=\"tr_2\"><td class=\"tr2\">" + sales.issue + "</td>";
        for (const std::string& number : sales.numbers) {
            const bool won = std::find(sales.winners.begin(), sales.winners.end(), number) !=
                             sales.winners.end();
            page += (won ? "<td class=\"td_z\">" : "<td nowrap>") + number + "</td>\r\n";
        }
        page +=
            "<td width=\"1\" align=\"middle\" bgcolor=\"#FFFFFF\" style=\"padding:0\">&nbsp;"
            "</td></tr>\r\n";
    }
    return page + "</table>";
}

}  // namespace ssq
