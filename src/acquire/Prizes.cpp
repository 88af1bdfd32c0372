#include "acquire/Prizes.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>

#include "acquire/getWWW.h"
#include "base/numbers.h"
#include "base/text.h"
#include "draws/Public_var.h"
#include "draws/queries.h"
#include "ui/Host.h"

namespace ssq {

namespace {

constexpr std::size_t kLevels = 6;
constexpr std::array kLevelNames = {"一等奖", "二等奖", "三等奖", "四等奖", "五等奖", "六等奖"};
constexpr const char* kTableStart = "<tralign=centerbgcolor=\"#FE6601\"class=\"px12line18\">";

struct Prize {
    std::int32_t zs = 0;  // tickets
    std::int32_t mz = 0;  // yuan per ticket
    std::int32_t jj = 0;  // yuan
};

struct Notice {
    std::string tze;
    std::string xqjc;
    std::array<Prize, kLevels> prizes;
    std::int32_t zfj = 0;
};

std::optional<std::int32_t> To32Bits(std::int64_t value) {
    if (value < 0 || value > std::numeric_limits<std::int32_t>::max()) return std::nullopt;
    return static_cast<std::int32_t>(value);
}

// A count or an amount in whole yuan, digit groups allowed.
std::optional<std::int32_t> ToWhole(const std::string& text) {
    const auto value = ParseNumber(text);
    if (!value || *value != std::trunc(*value)) return std::nullopt;
    return To32Bits(WholePart(text));
}

// The part of the table that holds one level, up to the name of the next.
std::string LevelSegment(Host& host, std::size_t level, const std::string& table) {
    if (level + 1 == kLevels) {
        return CutBetween(host, kLevelNames[level], "元/注", table) + "元/注";
    }
    return RegexCollect(
        std::string(kLevelNames[level]) + R"(([\s\S]*)元\/注([\s\S]*))" + kLevelNames[level + 1],
        table);
}

// Empty, with the fault in words, when the level does not parse.
std::optional<Prize> ReadPrize(Host& host, std::size_t level, const std::string& table,
                               std::string& fault) {
    const std::string segment = LevelSegment(host, level, table);
    const char* mark = level + 1 == kLevels ? "1px0px1px1px;\">" : "1px0px0px1px;\">";
    // The rule's cell bears the same mark in front of the cell with the tickets.
    std::string text = CutBetween(host, mark, "注", segment) + "注";
    const std::string tickets = CutBetween(host, mark, "注", text);
    const auto zs = ToWhole(tickets);
    if (!zs) {
        fault = std::string(kLevelNames[level]) + "注数不正确：" + Excerpt(tickets);
        return std::nullopt;
    }
    text = CutBetween(host, "注", "注", segment);
    const std::string amount = CutBetween(host, "px;\">", "元/", text);
    const auto mz = ToWhole(amount);
    if (!mz) {
        fault = std::string(kLevelNames[level]) + "单注奖金不正确：" + Excerpt(amount);
        return std::nullopt;
    }
    const auto jj = To32Bits(std::int64_t{*zs} * *mz);
    if (!jj) {
        fault = std::string(kLevelNames[level]) + "奖金超出范围：" + tickets + "×" + amount;
        return std::nullopt;
    }
    return Prize{*zs, *mz, *jj};
}

// False, with the fault in words, at the first level that does not parse.
bool ReadPrizes(Host& host, const std::string& table, Notice& notice, std::string& fault) {
    std::int64_t sum = 0;
    for (std::size_t level = 0; level < kLevels; ++level) {
        const auto prize = ReadPrize(host, level, table, fault);
        if (!prize) return false;
        notice.prizes[level] = *prize;
        sum += prize->jj;
    }
    const auto zfj = To32Bits(sum);
    if (!zfj) fault = "总奖金超出范围：" + std::to_string(sum);
    notice.zfj = zfj.value_or(0);
    return zfj.has_value();
}

// An amount as the text of a number; empty when it is none, below 0, or beyond 10^15 yuan.
std::string ToAmount(const std::string& text) {
    constexpr double kTooLarge = 1e15;
    const auto value = ParseNumber(text);
    return value && *value >= 0 && *value < kTooLarge ? NumberText(*value) : std::string();
}

// Reads the notice of an issue. Nothing when it cannot be used: not published, which a pool of 0
// means, or told.
std::optional<Notice> ReadNotice(Host& host, const std::string& issue, const std::string& page,
                                 bool& isPublished) {
    const std::string stake = CutBetween(host, "<strong>投注总额</strong>", "元", page);
    const std::string pool = CutBetween(host, "未中出奖金", "元", page);
    const std::string table = CutBetween(host, kTableStart, "</table>", page);
    Notice notice;
    notice.tze = ToAmount(stake);
    notice.xqjc = ToAmount(pool);
    std::string fault;
    const bool parsed = ReadPrizes(host, table, notice, fault);
    isPublished = Val(notice.xqjc.empty() ? pool : notice.xqjc) != 0;
    if (!isPublished) return std::nullopt;
    if (parsed && notice.tze.empty()) fault = "投注总额不正确：" + Excerpt(stake);
    if (parsed && notice.xqjc.empty()) fault = "未中出奖金不正确：" + Excerpt(pool);
    if (fault.empty()) return notice;
    host.ShowMessage(issue + "期的" + fault);
    return std::nullopt;
}

std::string InsertStatement(const std::string& issue, const Notice& notice) {
    std::string zs;
    std::string mz;
    std::string jj;
    for (const Prize& prize : notice.prizes) {
        zs += "," + std::to_string(prize.zs);
        mz += "," + std::to_string(prize.mz);
        jj += "," + std::to_string(prize.jj);
    }
    return "Insert into cpjc(kjqh, xqjc, tze, zs1d, zs2d, zs3d, zs4d, zs5d, zs6d, mz1d, mz2d, "
           "mz3d, mz4d, mz5d, mz6d, jj1d, jj2d, jj3d, jj4d, jj5d, jj6d,zfj) values(" +
           issue + "," + notice.xqjc + "," + notice.tze + zs + mz + jj + "," +
           std::to_string(notice.zfj) + ")";
}

IssueEnd StoreNotice(Session& session, const std::string& issue, const std::string& page) {
    bool isPublished = false;
    const auto notice = ReadNotice(session.host, issue, page, isPublished);
    if (!notice) return isPublished ? IssueEnd::kFault : IssueEnd::kNotPublished;
    return ExecuteOrTell(session, InsertStatement(issue, *notice)) ? IssueEnd::kWritten
                                                                   : IssueEnd::kFault;
}

}  // namespace

UpdateResult UpdatePrizes(Session& session, Run& run, int& written) {
    static const IssueUpdate kPrizes{
        .name = "奖池信息",
        .pending =
            "select kjqh from cphm where kjqh>(select max(kjqh) from cpjc ) "
            "order by kjqh asc ",
        .query = [](const std::string& issue) { return "/zjfc/06asp_gg_ssq.asp?qishu=" + issue; },
        .store = StoreNotice,
        .notPublished = "无数据，请稍候再试！！",
        .latest = "数据为最新，无需更新！",
    };
    return UpdateIssues(session, run, session.deployment.resultsHost, kPrizes, written);
}

}  // namespace ssq
