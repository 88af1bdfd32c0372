#include "gateway/DatabaseExport.h"

#include "base/files.h"
#include "base/text.h"
#include "draws/DrawsCsv.h"
#include "store/SqlConn.h"

namespace ssq {

namespace {

constexpr const char* kSelect =
    "select cphm.kjqh,kjDate,a7,kjhm,cqsx,tze,xqjc,"
    "zs1d,zs2d,zs3d,zs4d,zs5d,zs6d,mz1d,mz2d,mz3d,mz4d,mz5d,mz6d "
    "from cphm left join cpjc on cpjc.kjqh=cphm.kjqh order by cphm.kjqh";
constexpr int kFirstTickets = 7;
constexpr int kLevels = static_cast<int>(kPrizeLevels);

std::string AmountsOf(const Recordset& rows, int firstField) {
    std::vector<std::string> amounts;
    for (int level = 0; level < kLevels; ++level) {
        const int field = firstField + level;
        amounts.push_back(rows.IsNull(field) ? "-" : rows.Text(field));
    }
    return Join(amounts, " ");
}

std::string LineOf(const Recordset& rows) {
    const std::vector<std::string> fields = {
        rows.Text(0),
        rows.Text(1),
        rows.Text(2),
        Replace(rows.Text(3), ",", " "),
        Replace(rows.Text(4), ",", " "),
        rows.Text(5),
        rows.Text(6),
        AmountsOf(rows, kFirstTickets),
        AmountsOf(rows, kFirstTickets + kLevels),
    };
    return Join(fields, ",") + "\n";
}

}  // namespace

bool ExportDatabase(const std::filesystem::path& database, const std::filesystem::path& file,
                    std::string& told) {
    Connection connection;
    Recordset rows;
    if (!connection.Open(database, told) || !connection.OpenQuery(kSelect, told, rows))
        return false;
    std::string text = std::string(kDrawsCsvHeading) + "\n";
    for (; !rows.eof(); rows.MoveNext()) text += LineOf(rows);
    const DrawsCsv csv = ReadDrawsCsv(text);
    if (!ReplaceFile(file, WriteDrawsCsv(csv.draws), told)) return false;
    told = "已导出 " + std::to_string(csv.draws.size()) + " 期";
    if (csv.faults.empty()) return true;
    told += "，略去 " + std::to_string(csv.faults.size()) + " 期：" + csv.faults.front().reason;
    return true;
}

}  // namespace ssq
