#include "tools/FormulaFiles.h"

#include "base/charset.h"
#include "base/dates.h"
#include "base/files.h"
#include "base/text.h"
#include "draws/Public_var.h"
#include "draws/queries.h"
#include "ui/Host.h"
#include "ui/TextFile.h"

namespace ssq {

namespace {

// Follows each formula in the store's text.
constexpr std::string_view kFormulaEnd = "{tornelka}";
constexpr const char* kLineEnd = "\r\n";
constexpr std::string_view kRateMark = "正确率:";
constexpr std::size_t kRateCharacters = 5;
// Far above any list of formulas; a larger file was chosen by mistake.
constexpr std::size_t kLargestFile = std::size_t{1} << 16;  // bytes

// "yymmdd-hh.mm.ss" of now.
std::string FileTime() {
    const std::string now = Replace(Replace(Replace(NowText(), "-", ""), ":", "."), " ", "-");
    return now.substr(2);
}

std::string FileName(std::string_view target, std::string_view resultText) {
    std::string name = std::string(target) + "胆码";
    const auto mark = resultText.find(kRateMark);
    if (mark != std::string_view::npos) {
        const auto rate = resultText.substr(mark + kRateMark.size());
        name += "{正确率" + Characters(rate, 1, kRateCharacters) + "}";
    }
    return FileTime() + name + "公式.dmgs";
}

}  // namespace

std::vector<std::string> FormulasOf(const std::string& stored) {
    std::vector<std::string> formulas = Split(stored, kFormulaEnd);
    std::erase_if(formulas, [](const std::string& formula) { return Trim(formula).empty(); });
    return formulas;
}

std::optional<std::vector<std::string>> LoadFormulaList(Session& session) {
    Recordset rows;
    if (!QueryOrTell(session, kStoredFormulas, rows)) return std::nullopt;
    return FormulasOf(rows.Text(0));
}

bool SaveFormulaList(Session& session, const std::vector<std::string>& formulas) {
    std::string text;
    for (const std::string& formula : formulas) text.append(formula).append(kFormulaEnd);
    text += kFormulaEnd;
    return ExecuteOrTell(session, "update  gsjs set gstext='" + text + "' where gsname='dm'");
}

bool SaveZDYgs(Session& session, const std::vector<std::string>& formulas, std::string_view target,
               std::string_view resultText) {
    std::string bytes;
    for (const std::string& formula : formulas) {
        const auto line = EncodeGbk(formula);
        if (!line) {
            session.host.ShowMessage("公式“" + formula +
                                     "”含有文件编码(GBK)没有的字符，不能保存！");
            return false;
        }
        bytes.append(*line).append(kLineEnd);
    }
    bytes += kLineEnd;
    const std::filesystem::path file = session.userFolder / FileName(target, resultText);
    if (!WriteTextFile(session.host, file, bytes)) return false;
    session.host.ShowMessage("文件已经保存到" + file.string());
    return true;
}

std::optional<std::vector<std::string>> ReadZDYgs(Host& host, const std::filesystem::path& file) {
    std::string reason;
    const auto bytes = ReadFile(file, kLargestFile, reason);
    if (!bytes) {
        host.ShowMessage("读取文件时出错！" + reason);
        return std::nullopt;
    }
    const auto text = DecodeTextFile(*bytes);
    if (!text) {
        host.ShowMessage("这不是文本文件，不能读取公式！");
        return std::nullopt;
    }
    std::vector<std::string> formulas;
    for (std::string& line : Split(Replace(*text, kLineEnd, "\n"), "\n")) {
        if (!Trim(line).empty()) formulas.push_back(std::move(line));
    }
    return formulas;
}

}  // namespace ssq
