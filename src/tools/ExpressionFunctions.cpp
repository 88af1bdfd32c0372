#include "tools/ExpressionFunctions.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "base/charset.h"
#include "base/numbers.h"
#include "base/text.h"

namespace ssq {

namespace {

using Arguments = std::span<const ExpressionValue>;
using Value = ExpressionValue;

[[noreturn]] void RefuseArgument() {
    throw ExpressionFault{"参数超出范围"};
}

// A count or a place among the arguments.
std::size_t ToSize(const Value& value, std::int32_t least) {
    const std::int32_t size = ToWhole(value);
    if (size < least) RefuseArgument();
    return static_cast<std::size_t>(size);
}

double Sgn(double value) {
    return (value > 0) - (value < 0);
}

double Sqr(double value) {
    if (value < 0) RefuseArgument();
    return std::sqrt(value);
}

double Log(double value) {
    if (value <= 0) RefuseArgument();
    return std::log(value);
}

template <double (*Function)(double)>
Value OfNumber(Arguments arguments) {
    return Finite(Function(ToNumber(arguments[0])));
}

// "Round to even": a half goes to the even digit; up to 22 decimals.
Value RoundTo(Arguments arguments) {
    constexpr std::int32_t kMostDecimals = 22;
    const double value = ToNumber(arguments[0]);
    const std::int32_t decimals = arguments.size() > 1 ? ToWhole(arguments[1]) : 0;
    if (decimals < 0 || decimals > kMostDecimals) RefuseArgument();
    const double scale = std::pow(10, decimals);
    const double scaled = value * scale;
    // A number that large has no decimals to round.
    return std::isfinite(scaled) ? std::nearbyint(scaled) / scale : value;
}

Value CInt(Arguments arguments) {
    return double{static_cast<double>(ToWhole(arguments[0], INT16_MIN, INT16_MAX))};
}

Value CLng(Arguments arguments) {
    return double{static_cast<double>(ToWhole(arguments[0]))};
}

// A negative number shows its two's complement, in 16 bits where it fits there and else in 32.
template <unsigned BitsPerDigit>
Value InBase(Arguments arguments) {
    constexpr std::uint32_t kWord = 0xFFFF;
    constexpr std::uint32_t kDigit = (1U << BitsPerDigit) - 1;
    const std::int32_t whole = ToWhole(arguments[0]);
    auto bits = static_cast<std::uint32_t>(whole);
    if (whole < 0 && whole >= INT16_MIN) bits &= kWord;
    std::string digits;
    do {
        digits += "0123456789ABCDEF"[bits & kDigit];
        bits >>= BitsPerDigit;
    } while (bits != 0);
    std::reverse(digits.begin(), digits.end());
    return digits;
}

Value Len(Arguments arguments) {
    return static_cast<double>(CharacterCount(ToText(arguments[0])));
}

Value Left(Arguments arguments) {
    return Characters(ToText(arguments[0]), 1, ToSize(arguments[1], 0));
}

Value Right(Arguments arguments) {
    const std::string text = ToText(arguments[0]);
    const std::size_t all = CharacterCount(text);
    return Characters(text, all - std::min(all, ToSize(arguments[1], 0)) + 1);
}

Value Mid(Arguments arguments) {
    const std::size_t count = arguments.size() > 2 ? ToSize(arguments[2], 0) : std::string::npos;
    return Characters(ToText(arguments[0]), ToSize(arguments[1], 1), count);
}

// The last argument of instr and replace: 0 compares exactly, 1 without regard to case.
bool IgnoresCase(const Value& compare) {
    const std::int32_t kind = ToWhole(compare);
    if (kind != 0 && kind != 1) RefuseArgument();
    return kind == 1;
}

// instr([start,] text, part[, compare]); with three arguments the first is the start.
Value InStr(Arguments arguments) {
    const std::size_t start = arguments.size() > 2 ? ToSize(arguments[0], 1) : 1;
    if (arguments.size() > 2) arguments = arguments.subspan(1);
    std::string text = ToText(arguments[0]);
    std::string part = ToText(arguments[1]);
    if (arguments.size() > 2 && IgnoresCase(arguments[2])) {
        text = LowerCase(text);
        part = LowerCase(part);
    }
    if (start > CharacterCount(text)) return 0.0;
    const std::string tail = Characters(text, start);
    const std::size_t at = tail.find(part);
    if (at == std::string::npos) return 0.0;
    return static_cast<double>(start + CharacterCount(std::string_view(tail).substr(0, at)));
}

// replace(text, part, with[, start[, count[, compare]]]): the result begins at `start`; a count of
// -1 replaces all.
Value ReplaceText(Arguments arguments) {
    const std::size_t start = arguments.size() > 3 ? ToSize(arguments[3], 1) : 1;
    std::int32_t left = arguments.size() > 4 ? ToWhole(arguments[4]) : -1;
    if (left < -1) RefuseArgument();
    const bool ignoresCase = arguments.size() > 5 && IgnoresCase(arguments[5]);
    const std::string text = Characters(ToText(arguments[0]), start);
    const std::string searched = ignoresCase ? LowerCase(text) : text;
    const std::string part = ignoresCase ? LowerCase(ToText(arguments[1])) : ToText(arguments[1]);
    const std::string with = ToText(arguments[2]);
    if (part.empty()) return text;
    std::string replaced;
    std::size_t done = 0;
    for (; left != 0; --left) {
        const std::size_t at = searched.find(part, done);
        if (at == std::string::npos) break;
        replaced.append(text, done, at - done).append(with);
        RequireLength(replaced.size());
        done = at + part.size();
    }
    RequireLength(replaced.size() + text.size() - done);
    return replaced.append(text, done);
}

Value StrReverse(Arguments arguments) {
    const std::string text = ToText(arguments[0]);
    std::string reversed;
    std::size_t end = text.size();
    for (std::size_t at = text.size(); at-- > 0;) {
        if (CharacterCount(std::string_view(text).substr(at, 1)) == 0) continue;
        reversed.append(text, at, end - at);
        end = at;
    }
    return reversed.append(text, 0, end);
}

// These three take blanks only, no other white space.
Value LTrim(Arguments arguments) {
    const std::string text = ToText(arguments[0]);
    return text.substr(std::min(text.find_first_not_of(' '), text.size()));
}

Value RTrim(Arguments arguments) {
    const std::string text = ToText(arguments[0]);
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

Value TrimBoth(Arguments arguments) {
    const Value left = LTrim(arguments);
    return RTrim({&left, 1});
}

// The code of the first character as Chinese Windows has it: two bytes of GBK are one negative
// 16-bit number. "?" stands for what GBK has not.
Value Asc(Arguments arguments) {
    const std::string text = ToText(arguments[0]);
    if (text.empty()) RefuseArgument();
    const std::string bytes = EncodeGbk(Characters(text, 1, 1)).value_or("?");
    const auto first = static_cast<unsigned char>(bytes[0]);
    if (bytes.size() == 1) return double{static_cast<double>(first)};
    const unsigned code = first << 8U | static_cast<unsigned char>(bytes[1]);
    return double{static_cast<double>(static_cast<std::int16_t>(code))};
}

std::string CharacterOf(std::int32_t code) {
    constexpr std::int32_t kLastAscii = 127;
    if (code >= 0 && code <= kLastAscii) return std::string(1, static_cast<char>(code));
    if (code < INT16_MIN || code > UINT16_MAX) RefuseArgument();
    const auto bits = static_cast<std::uint16_t>(code);
    std::size_t faults = 0;
    std::string character = DecodeGbk(
        std::string{static_cast<char>(bits >> 8U), static_cast<char>(bits & 0xFFU)}, faults);
    if (faults > 0 || CharacterCount(character) != 1) RefuseArgument();
    return character;
}

Value Chr(Arguments arguments) {
    return CharacterOf(ToWhole(arguments[0]));
}

// string(count, character): the character is the first of a text or a code, modulo 256.
Value StringOf(Arguments arguments) {
    constexpr std::int32_t kCodes = 256;
    const std::size_t count = ToSize(arguments[0], 0);
    const std::string unit = IsText(arguments[1]) ? Characters(ToText(arguments[1]), 1, 1)
                                                  : CharacterOf(ToWhole(arguments[1]) % kCodes);
    if (unit.empty()) RefuseArgument();
    RequireLength(count * unit.size());
    std::string text;
    for (std::size_t i = 0; i < count; ++i) text += unit;
    return text;
}

Value UCase(Arguments arguments) {
    std::string text = ToText(arguments[0]);
    for (char& c : text) {
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    }
    return text;
}

constexpr std::array kFunctions = {
    ExpressionFunction{"int", 1, 1, OfNumber<std::floor>},
    ExpressionFunction{"fix", 1, 1, OfNumber<std::trunc>},
    ExpressionFunction{"abs", 1, 1, OfNumber<std::fabs>},
    ExpressionFunction{"sgn", 1, 1, OfNumber<Sgn>},
    ExpressionFunction{"sqr", 1, 1, OfNumber<Sqr>},
    ExpressionFunction{"exp", 1, 1, OfNumber<std::exp>},
    ExpressionFunction{"log", 1, 1, OfNumber<Log>},
    ExpressionFunction{"sin", 1, 1, OfNumber<std::sin>},
    ExpressionFunction{"cos", 1, 1, OfNumber<std::cos>},
    ExpressionFunction{"tan", 1, 1, OfNumber<std::tan>},
    ExpressionFunction{"atn", 1, 1, OfNumber<std::atan>},
    ExpressionFunction{"round", 1, 2, RoundTo},
    ExpressionFunction{"cint", 1, 1, CInt},
    ExpressionFunction{"clng", 1, 1, CLng},
    ExpressionFunction{"cdbl", 1, 1, [](Arguments a) -> Value { return ToNumber(a[0]); }},
    ExpressionFunction{"cstr", 1, 1, [](Arguments a) -> Value { return ToText(a[0]); }},
    ExpressionFunction{"hex", 1, 1, InBase<4>},
    ExpressionFunction{"oct", 1, 1, InBase<3>},
    ExpressionFunction{"len", 1, 1, Len},
    ExpressionFunction{"left", 2, 2, Left},
    ExpressionFunction{"right", 2, 2, Right},
    ExpressionFunction{"mid", 2, 3, Mid},
    ExpressionFunction{"instr", 2, 4, InStr},
    ExpressionFunction{"replace", 3, kMostArguments, ReplaceText},
    ExpressionFunction{"strreverse", 1, 1, StrReverse},
    ExpressionFunction{"trim", 1, 1, TrimBoth},
    ExpressionFunction{"ltrim", 1, 1, LTrim},
    ExpressionFunction{"rtrim", 1, 1, RTrim},
    ExpressionFunction{"asc", 1, 1, Asc},
    ExpressionFunction{"chr", 1, 1, Chr},
    ExpressionFunction{"string", 2, 2, StringOf},
    ExpressionFunction{"ucase", 1, 1, UCase},
    ExpressionFunction{"lcase", 1, 1, [](Arguments a) -> Value { return LowerCase(ToText(a[0])); }},
    ExpressionFunction{"isnumeric", 1, 1,
                       [](Arguments a) -> Value {
                           return !IsText(a[0]) || IsNumeric(std::get<std::string>(a[0]));
                       }},
};

}  // namespace

const ExpressionFunction* FindExpressionFunction(std::string_view name) {
    const auto* found =
        std::find_if(kFunctions.begin(), kFunctions.end(),
                     [name](const auto& function) { return function.name == name; });
    return found == kFunctions.end() ? nullptr : found;
}

}  // namespace ssq
