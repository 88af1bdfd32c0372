#include <sqlite3.h>

#include <cmath>
#include <string>

#include "base/dates.h"
#include "base/numbers.h"
#include "base/text.h"
#include "store/Dialect.h"

namespace ssq {

namespace {

bool AnyNull(int count, sqlite3_value** arguments) {
    for (int i = 0; i < count; ++i) {
        if (sqlite3_value_type(arguments[i]) == SQLITE_NULL) return true;
    }
    return false;
}

std::string TextArgument(sqlite3_value* argument) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(argument));
    return text ? std::string(text, static_cast<std::size_t>(sqlite3_value_bytes(argument)))
                : std::string();
}

// mid(text, start[, length]), counted from 1.
void Mid(sqlite3_context* context, int count, sqlite3_value** arguments) {
    if (AnyNull(count, arguments)) return sqlite3_result_null(context);
    const std::string text = TextArgument(arguments[0]);
    const sqlite3_int64 start = sqlite3_value_int64(arguments[1]);
    const sqlite3_int64 length =
        count > 2 ? sqlite3_value_int64(arguments[2]) : static_cast<sqlite3_int64>(text.size());
    if (start < 1 || length < 0) {
        return sqlite3_result_error(context, "mid: invalid position", -1);
    }
    const std::string part =
        Characters(text, static_cast<std::size_t>(start), static_cast<std::size_t>(length));
    sqlite3_result_text(context, part.data(), static_cast<int>(part.size()), SQLITE_TRANSIENT);
}

// int(x): the largest whole number that is not above x; a text counts as the number it is.
void Int(sqlite3_context* context, int count, sqlite3_value** arguments) {
    if (AnyNull(count, arguments)) return sqlite3_result_null(context);
    sqlite3_result_int64(context, WholePart(std::floor(sqlite3_value_double(arguments[0]))));
}

// day(date): the day of the month, null for what is no date.
void Day(sqlite3_context* context, int count, sqlite3_value** arguments) {
    const auto date =
        AnyNull(count, arguments) ? std::nullopt : ParseDate(TextArgument(arguments[0]));
    if (!date) return sqlite3_result_null(context);
    sqlite3_result_int(context, static_cast<int>(static_cast<unsigned>(date->day())));
}

}  // namespace

void RegisterFunctions(sqlite3* database) {
    constexpr int kFlags = SQLITE_UTF8 | SQLITE_DETERMINISTIC;
    const auto add = [&](const char* name, int arguments, auto* function) {
        sqlite3_create_function_v2(database, name, arguments, kFlags, nullptr, function, nullptr,
                                   nullptr, nullptr);
    };
    add("mid", 2, Mid);
    add("mid", 3, Mid);
    add("int", 1, Int);
    add("day", 1, Day);
}

}  // namespace ssq
