// The adapter of one shape of draw notice service.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace ssq {

// The draws of the service's answer as the bytes of a file of draws, which are still to be read
// with its checks; one line for each notice, in their order. Nothing, with the reason in Chinese,
// for what is no such answer. The shape:
//   {"result":[{"code":"2026114","date":"2026-10-06(二)","red":"07,18,23,24,29,31","blue":"10",
//               "sales":"339993172","poolmoney":"941,868,611",
//               "prizegrades":[{"type":1,"typenum":"11","typemoney":"5775578"}, ...]}, ...]}
// An amount may be a text, with or without separators, or a number; "" is not known yet.
std::optional<std::string> NoticesAsCsv(std::string_view json, std::string& fault);

}  // namespace ssq
