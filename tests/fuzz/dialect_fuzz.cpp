// Statements of the panels' dialect, alone and through a connection.
#include <string>

#include "fuzz/Fuzz.h"
#include "store/Dialect.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view sql = ssq::FuzzText(data, size);
    const std::string translated =
        ssq::TranslateStatement(sql, [](std::string_view name) { return name != "v"; });
    // Only an order gains words: ",rowid" once for each select at most.
    ssq::Promise(translated.size() <= sql.size() * 3 + 16);
    ssq::IsEmptyStatement(sql);
    ssq::IsEmptyStatement(translated);
    return 0;
}
