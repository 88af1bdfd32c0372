#include "draws/BankerSettings.h"

#include "base/numbers.h"
#include "base/text.h"
#include "draws/Public_var.h"
#include "draws/queries.h"
#include "ui/Host.h"

namespace ssq {

namespace {

constexpr int kLeastPeriods = 5;
constexpr std::size_t kMostDigits = 3;

std::optional<int> ReadSetting(Session& session, const std::string& column) {
    Recordset rows;
    const std::string sql = "Select top 1 " + column + " from vqs where itype=0";
    if (!QueryOrTell(session, sql, rows)) return std::nullopt;
    return ToInt(rows.Int(0));
}

}  // namespace

std::string BankerSettingsFault(const std::string& periods, int dmgs) {
    if (!IsNumeric(periods)) return "必须为数字！";
    if (CharacterCount(periods) > kMostDigits || WholePart(periods) > kMostLearnPeriods) {
        return "期数不能超过100期！";
    }
    if (WholePart(periods) < kLeastPeriods) return "期数不能小于5期！";
    return dmgs >= 1 && dmgs <= kMostBankers ? "" : "请选择胆码个数！";
}

std::optional<int> GetLearnPeriods(Session& session) {
    return ReadSetting(session, "xxqs");
}

std::optional<int> GetBankerCount(Session& session) {
    return ReadSetting(session, "dmgs");
}

std::optional<BankerSettings> ReadBankerSettings(Session& session) {
    const auto xxqs = GetLearnPeriods(session);
    const auto dmgs = xxqs ? GetBankerCount(session) : std::nullopt;
    if (!dmgs) return std::nullopt;
    return BankerSettings{*xxqs, *dmgs};
}

std::string LearningModeText(const std::optional<BankerSettings>& settings) {
    const std::string xxqs = settings ? std::to_string(settings->xxqs) : "";
    const std::string dmgs = settings ? std::to_string(settings->dmgs) : "";
    return "当前模式: 学习的期数是" + xxqs + "期,学习的胆码是" + dmgs +
           "个   胆码推荐需要奖池信息更新之后才能推荐！";
}

bool SaveBankerSettings(Session& session, std::string_view periodsText, int dmgs) {
    const std::string periods = Trim(periodsText);
    if (const std::string fault = BankerSettingsFault(periods, dmgs); !fault.empty()) {
        session.host.ShowMessage(fault);
        return false;
    }
    if (!ExecuteOrTell(session, "update vqs set  xxqs=?, dmgs=?  where itype=0 ",
                       {WholePart(periods), std::int64_t{dmgs}})) {
        return false;
    }
    session.host.ShowMessage("您改更了学习参数，请立即重新学习！");
    return true;
}

}  // namespace ssq
