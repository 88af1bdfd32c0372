// Texts as the panels treat them: UTF-8, counted in characters where they can be Chinese.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace ssq {

// The parts between separators; an empty text has no parts, "a," has two.
std::vector<std::string> Split(std::string_view text, std::string_view separator);

std::string Join(const std::vector<std::string>& parts, std::string_view separator);

// Every occurrence of `from` becomes `to`; an empty `from` changes nothing.
std::string Replace(std::string_view text, std::string_view from, std::string_view to);

// Without leading and trailing white space.
std::string Trim(std::string_view text);

// ASCII letters in lower case; other characters stay.
std::string LowerCase(std::string_view text);

bool Contains(std::string_view text, std::string_view part);

bool EqualIgnoringCase(std::string_view a, std::string_view b);

// Length in characters of a UTF-8 text.
std::size_t CharacterCount(std::string_view text);

// Places a text takes in a fixed-pitch font: an ASCII character one, any other two.
std::size_t DisplayWidth(std::string_view text);

// Up to `count` characters from character `start`, counted from 1.
std::string Characters(std::string_view text, std::size_t start,
                       std::size_t count = std::string_view::npos);

// A value from outside as messages quote it: its first characters.
std::string Excerpt(std::string_view value);

// The pattern "00": at least two digits, 0 gives 00, -1 gives -01, 34 gives 34.
std::string TwoDigits(long long value);

}  // namespace ssq
