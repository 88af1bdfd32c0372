#include "banker/LearningSettings.h"

#include <string>

#include "base/numbers.h"
#include "base/text.h"
#include "draws/Public_var.h"
#include "draws/queries.h"
#include "ui/Host.h"

namespace ssq {

namespace {

constexpr int kMostPeriods = 100;
constexpr int kLeastPeriods = 5;
constexpr std::size_t kMostDigits = 3;

// What is wrong with the text; empty when nothing is.
std::string Fault(const std::string& periods) {
    if (!IsNumeric(periods)) return "必须为数字！";
    if (CharacterCount(periods) > kMostDigits || WholePart(periods) > kMostPeriods) {
        return "期数不能超过100期！";
    }
    return WholePart(periods) < kLeastPeriods ? "期数不能小于5期！" : "";
}

}  // namespace

bool SaveLearningSettings(Session& session, std::string_view periodsText, int dmgs) {
    const std::string periods = Trim(periodsText);
    if (const std::string fault = Fault(periods); !fault.empty()) {
        session.host.ShowMessage(fault);
        return false;
    }
    if (!ExecuteOrTell(session, "update vqs set  xxqs=" + periods +
                                    ", dmgs=" + std::to_string(dmgs) + "  where itype=0 ")) {
        return false;
    }
    session.host.ShowMessage("您改更了学习参数，请立即重新学习！");
    return true;
}

}  // namespace ssq
