// Where the user's formulas are kept: the store's row, and files to save and pass on.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ssq {

class Host;
struct Session;

// The formulas in the text of the store's row, whose query is kStoredFormulas.
std::vector<std::string> FormulasOf(const std::string& stored);
inline constexpr const char* kStoredFormulas = "Select gstext from gsjs where gsname='dm'";

// The formulas in force. Nothing after showing the store's text.
std::optional<std::vector<std::string>> LoadFormulaList(Session& session);

// Replaces them. False after showing the store's text, which an apostrophe in a formula causes.
bool SaveFormulaList(Session& session, const std::vector<std::string>& formulas);

// Saves the formulas in the user's folder and tells the path. The file's name holds the time,
// the word of the target ("红球"), and the start of the rate where `resultText` shows one. GBK,
// lines ended by CR LF, an empty one last. False after a message; nothing is written when a formula
// has a character that GBK has not.
bool SaveZDYgs(Session& session, const std::vector<std::string>& formulas, std::string_view target,
               std::string_view resultText);

// The lines of a file that are not blank, unchanged; GBK or UTF-8, with or without a byte order
// mark. Nothing after a message.
std::optional<std::vector<std::string>> ReadZDYgs(Host& host, const std::filesystem::path& file);

}  // namespace ssq
