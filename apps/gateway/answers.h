// What the gateway answers from its file.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace ssq {

class DrawFile;

// The value of a query key, empty where it is not given.
using QueryValue = std::function<std::string(const char* key)>;

// The page as UTF-8 text; nothing for a path that no update asks for. The list holds all draws on
// its first page; a draw without whole prize money is not published, one without drawn order has
// a row without balls.
std::optional<std::string> Answer(const DrawFile& file, const std::string& path,
                                  const QueryValue& query);

}  // namespace ssq
