#include "trial/BlindTest.h"

#include <algorithm>
#include <utility>

#include "base/numbers.h"
#include "base/text.h"
#include "bets/BetPlan.h"
#include "draws/Draw.h"
#include "draws/Public_var.h"
#include "trial/Luck.h"
#include "trial/TrialReport.h"
#include "trial/WalkForward.h"
#include "ui/Host.h"

namespace ssq {

namespace {

std::string Fault(const BankerSettings& settings) {
    return BankerSettingsFault(std::to_string(settings.xxqs), settings.dmgs);
}

std::string Fault(const KillSettings& settings) {
    return KillSettingsFault(std::to_string(settings.xxqs), NumberText(settings.setRate),
                             settings.dmgs);
}

std::string Fault(const RedWrapTrial& /*settings*/) {
    return {};
}

std::string Fault(const BlueWrapTrial& /*settings*/) {
    return {};
}

std::string Fault(const SingleFormulaTrial& settings) {
    if (LevelsMeeting(settings.condition).none()) return "没有公式能满足这个条件！";
    return settings.window >= 0 ? "" : "分析期数填写错误！";
}

std::string Fault(const HeatTrial& settings) {
    if (settings.window < 0) return "分析期数填写错误！";
    return settings.numbers >= 1 && settings.numbers <= kReds ? "" : "号码个数应为1到33！";
}

std::string Fault(const OwnFormulasTrial& settings) {
    return settings.low <= settings.high ? "" : "起始值不能大于结束值！";
}

std::string Fault(const PlanTrial& settings) {
    if (Trim(settings.plan).empty()) return "选号台里还没有方案！";
    const BetPlanReading reading = ReadBetPlan(settings.plan);
    return reading.errors.empty() ? "" : reading.errors.front().Told();
}

// How many draws stand before each one that was judged.
std::vector<std::size_t> DrawsBeforeJudged(const History& history, const TrialResult& result) {
    std::vector<std::size_t> before;
    const std::size_t first = history.size() - result.rows.size();
    for (std::size_t row = 0; row < result.rows.size(); ++row) {
        if (result.rows[row].reason == NotJudged::kJudged) before.push_back(first + row);
    }
    return before;
}

}  // namespace

std::string TrialFault(const TrialSettings& settings) {
    if (settings.draws < 0) return "盲测期数填写错误！";
    return std::visit([](const auto& method) { return Fault(method); }, settings.method);
}

std::optional<TrialResult> RunBlindTest(Session& session, const TrialSettings& settings, Run& run) {
    const auto refuse = [&session](const std::string& text) {
        session.host.ShowMessage(text);
        return std::nullopt;
    };
    if (const std::string fault = TrialFault(settings); !fault.empty()) return refuse(fault);
    auto draws = ReadAllDraws(session);
    if (!draws) return std::nullopt;
    if (draws->empty()) return refuse("数据不足！");
    const History history(std::move(*draws));
    const bool chooses = ChoosesBest(settings.method);
    const auto steps = static_cast<double>(JudgedDraws(history, settings)) + 1;
    TrialProgress progress{run, steps + (chooses ? kLuckHistories : 0)};
    auto result = WalkForward(history, settings, progress);
    if (!result) return std::nullopt;
    const std::vector<std::size_t> before = DrawsBeforeJudged(history, *result);
    if (chooses && !before.empty()) {
        result->luck = LuckOf(settings.method, before, progress);
        if (!result->luck) return std::nullopt;
    }
    WriteReport(*result);
    return result;
}

}  // namespace ssq
