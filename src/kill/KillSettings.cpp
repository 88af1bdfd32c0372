#include "kill/KillSettings.h"

#include <algorithm>
#include <limits>

#include "base/numbers.h"
#include "base/text.h"
#include "draws/Public_var.h"
#include "draws/queries.h"
#include "kill/KillSearch.h"
#include "ui/Host.h"

namespace ssq {

namespace {

constexpr int kLowestRate = 10;
constexpr int kHighestRate = 100;

}  // namespace

std::string KillSettingsFault(const std::string& xxqs, const std::string& rate, int dmgs) {
    if (!IsNumeric(xxqs)) return "学习期数只能为数字！";
    if (!IsNumeric(rate)) return "杀对概率只能为数字！";
    if (WholePart(rate) > kHighestRate || WholePart(rate) < kLowestRate) {
        return "杀对概率不能大于100%或小于10%！";
    }
    if (WholePart(xxqs) < 1 || WholePart(xxqs) > std::numeric_limits<std::int32_t>::max()) {
        return "学习期数填写错误！";
    }
    return dmgs >= 0 && dmgs < kLargestKillSet ? "" : "请选择杀码个数！";
}

std::optional<KillSettings> ReadKillSettings(Session& session) {
    Recordset rows;
    if (!QueryOrTell(session, "select top 1 xxqs,dmgs,rc,setRate from vqs where itype=1", rows) ||
        rows.eof()) {
        return std::nullopt;
    }
    return KillSettings{ToInt(rows.Int("xxqs")), ToInt(rows.Int("dmgs")), ToInt(rows.Int("rc")),
                        rows.Number("setRate")};
}

std::optional<KillSettings> ReadKillSettingsOrTell(Session& session) {
    std::optional<KillSettings> settings = ReadKillSettings(session);
    if (!settings) session.host.ShowMessage("读取参数出错！");
    return settings;
}

bool SaveKillSettings(Session& session, const KillSettingsInput& input) {
    const std::string xxqs = Trim(input.xxqs);
    const std::string rate = Trim(input.rate);
    if (const std::string fault = KillSettingsFault(xxqs, rate, input.dmgs); !fault.empty()) {
        session.host.ShowMessage(fault);
        return false;
    }
    Recordset rows;
    if (!QueryOrTell(session, "Select * from vqs where itype=1", rows)) return false;
    const int rc = input.tolerant ? input.rc : 0;
    return ExecuteOrTell(
        session,
        rows.eof() ? "insert into vqs(xxqs,dmgs,rc,setRate,itype) values(?,?,?,?,1)"
                   : "Update vqs Set xxqs=?,dmgs=?,rc=?,setRate=? where itype=1",
        {WholePart(xxqs), std::int64_t{input.dmgs}, std::int64_t{rc}, WholePart(rate)});
}

KillProposal DefaultKillSettings(int dmgs) {
    if (dmgs <= 0) return {2, 0, false, "40"};
    return {dmgs + 2, dmgs + 1, true, "90"};
}

KillProposal ProposeKillSettings(int dmgs, const KillSettings& opened) {
    KillProposal proposal = DefaultKillSettings(dmgs);
    if (dmgs != opened.dmgs) return proposal;
    // The size of one formula starts strict whatever was stored.
    if (opened.rc != 0 && dmgs > 0) {
        proposal.rcSelected = std::clamp(opened.rc, 0, proposal.rcItems - 1);
    }
    proposal.tolerant = opened.rc >= 1;
    if (opened.setRate != 0) proposal.rateText = NumberText(opened.setRate);
    return proposal;
}

}  // namespace ssq
