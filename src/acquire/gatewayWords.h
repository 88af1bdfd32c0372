// What the program and its gateway say to each other.
#pragma once

#include <string_view>

namespace ssq {

// Arguments of the gateway; the last one is the file.
inline constexpr const char* kPort = "--port";
inline constexpr const char* kSource = "--source";
inline constexpr const char* kEndWithInput = "--end-with-input";  // ends when its input does

// Lines of the gateway's output, in this order: any number of notes, then one of the others.
inline constexpr std::string_view kNote = "note ";    // and a text for the user
inline constexpr std::string_view kFault = "fault ";  // and why it does not serve
inline constexpr std::string_view kReady = "ready";

}  // namespace ssq
