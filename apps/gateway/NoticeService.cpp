#include "gateway/NoticeService.h"

#include <array>
#include <nlohmann/json.hpp>
#include <vector>

#include "base/text.h"
#include "draws/DrawsCsv.h"

namespace ssq {

namespace {

using Json = nlohmann::json;

constexpr const char* kUnknown = "-";
constexpr unsigned char kDelete = 0x7F;  // the control character above the others

// A member as text, in one field of a line; empty where there is none.
std::string Text(const Json& object, const char* key) {
    if (!object.is_object()) return {};
    const auto member = object.find(key);
    if (member == object.end() || member->is_null()) return {};
    if (member->is_number()) return member->dump();
    if (!member->is_string()) return "?";
    std::string text = member->get<std::string>();
    for (char& c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == ',' || byte < ' ' || byte == kDelete) c = ' ';
    }
    return Trim(text);
}

// The date without the weekday or time that may stand behind it.
std::string Day(const Json& notice) {
    constexpr std::size_t kLength = 10;
    std::string date = Text(notice, "date");
    if (date.find_first_not_of("0123456789-/") == kLength) date.resize(kLength);
    return date;
}

std::string Amount(const Json& object, const char* key) {
    return Replace(Text(object, key), " ", "");
}

// The amounts of the six grades by their number; other grades are passed over.
std::string Amounts(const Json& notice, const char* key) {
    std::vector<std::string> amounts(kPrizeLevels, kUnknown);
    const auto grades = notice.find("prizegrades");
    if (grades == notice.end() || !grades->is_array()) return {};
    for (const Json& grade : *grades) {
        const std::string type = Text(grade, "type");
        if (type.size() != 1 || type[0] < '1' || type[0] > '6') continue;
        const std::string amount = Amount(grade, key);
        if (!amount.empty()) amounts[static_cast<std::size_t>(type[0] - '1')] = amount;
    }
    return Join(amounts, " ");
}

std::string LineOf(const Json& notice) {
    const std::vector<std::string> fields = {
        Text(notice, "code"),
        Day(notice),
        Text(notice, "blue"),
        Text(notice, "red"),
        "",
        Amount(notice, "sales"),
        Amount(notice, "poolmoney"),
        Amounts(notice, "typenum"),
        Amounts(notice, "typemoney"),
    };
    return Join(fields, ",") + "\n";
}

}  // namespace

std::optional<std::string> NoticesAsCsv(std::string_view json, std::string& fault) {
    const Json answer = Json::parse(json, nullptr, false);
    const auto list = answer.is_object() ? answer.find("result") : answer.end();
    if (!answer.is_object() || list == answer.end() || !list->is_array()) {
        fault = "来源的回答不是开奖公告";
        return std::nullopt;
    }
    std::string csv = std::string(kDrawsCsvHeading) + "\n";
    for (const Json& notice : *list) csv += LineOf(notice);
    return csv;
}

}  // namespace ssq
