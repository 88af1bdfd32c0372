// Statements of the panels' dialect: those without its own words stay as they are.
#include <algorithm>
#include <array>
#include <string>

#include "base/text.h"
#include "fuzz/Fuzz.h"
#include "store/Dialect.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view sql = ssq::FuzzText(data, size);
    const std::string translated =
        ssq::TranslateStatement(sql, [](std::string_view name) { return name != "v"; });
    const std::string words = ssq::LowerCase(sql);
    const bool plain =
        std::ranges::none_of(std::array{"top", "mod", "order", "?"},
                             [&](const char* word) { return ssq::Contains(words, word); });
    ssq::Promise(!plain || translated == sql);
    ssq::IsEmptyStatement(sql);
    ssq::IsEmptyStatement(translated);
    return 0;
}
