#include "tools/MDL_zdy_dm.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "base/numbers.h"
#include "base/text.h"
#include "chance/Chance.h"
#include "draws/Draw.h"
#include "draws/NumberSource.h"
#include "draws/Public_var.h"
#include "draws/queries.h"
#include "tools/Expression.h"
#include "tools/FormulaFiles.h"
#include "ui/Host.h"
#include "ui/Run.h"

namespace ssq {

namespace {

constexpr const char* kLineEnd = "\r\n";

// In place, since it runs some million times over a long history.
void ReplaceIn(std::string& text, std::string_view from, std::string_view to) {
    for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
}

// The values that formulas may name, as they are written into them.
class FormulaNames {
  public:
    explicit FormulaNames(const Draw& draw) : issue_(draw.issue) {
        for (std::size_t ball = 0; ball < draw.balls.size(); ++ball) {
            balls_[ball] = std::to_string(draw.balls[ball]);
        }
        balls_.back() = std::to_string(draw.blue);
    }

    // Name after name: digits written for one may complete the next.
    std::string Fill(std::string formula) const {
        ReplaceIn(formula, "kjqh", issue_);
        std::array<char, 2> name{'a', '1'};
        for (const std::string& ball : balls_) {
            ReplaceIn(formula, {name.data(), name.size()}, ball);
            ++name[1];
        }
        return formula;
    }

  private:
    std::string issue_;
    std::array<std::string, kRedsInDraw + 1> balls_;
};

// The absolute value as a whole number, halves up, of at least two digits.
std::string WholeText(double value) {
    std::array<char, 400> buffer{};  // the largest double has 309 digits
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(),
                                   std::round(std::fabs(value)), std::chars_format::fixed, 0)
                         .ptr;
    std::string text(buffer.data(), end);
    return text.size() < 2 ? "0" + text : text;
}

// The number that an expression gives; nothing after saying in `reason` what is wrong where.
std::optional<double> EvaluateNumber(std::string_view expression, std::string& reason) {
    const ExpressionResult result = EvaluateExpression(expression);
    if (result.error) {
        reason = "第" + std::to_string(result.error->place) + "个字符处" + result.error->reason;
        return std::nullopt;
    }
    if (!IsText(result.value)) return ToNumber(result.value);
    const auto number = ParseNumber(ToText(result.value));
    if (!number) reason = "结果“" + ToText(result.value) + "”不是数字";
    return number;
}

std::string Quoted(const std::string& formula) {
    constexpr std::size_t kLongest = 200;  // characters that a box shows well
    const std::string start = Characters(formula, 1, kLongest);
    return "“" + start + (start.size() < formula.size() ? "…”" : "”");
}

std::string TailOf(std::string_view twoDigits) {
    return "0" + std::string(twoDigits.substr(1, 1));
}

// What the draw shows to the predictions made before it.
std::string TargetText(const Draw& draw, FormulaTarget target) {
    if (target == FormulaTarget::kBlue) return TwoDigits(draw.blue);
    std::vector<std::string> items;
    for (const int ball : draw.balls) {
        items.push_back(target == FormulaTarget::kTail ? TailOf(TwoDigits(ball)) : TwoDigits(ball));
    }
    return Join(items, ",");
}

double LowOf(const FormulaTest& test) {
    return ParseNumber(test.low).value_or(0);
}

double HighOf(const FormulaTest& test) {
    return ParseNumber(test.high).value_or(0);
}

struct TestLog {
    int draws = 0;
    int right = 0;
    double chances = 0;  // of the draws judged
    std::string rightLog;
    std::string wrongLog;
    std::string lastIssue;
    std::string prediction;  // made from the last draw
};

void Judge(const Draw& draw, const FormulaTest& test, TestLog& log) {
    const std::string shown = TargetText(draw, test.target);
    const int hits = FormulaHits(draw, log.prediction, test.target);
    const bool isRight = hits >= LowOf(test) && hits <= HighOf(test);
    if (isRight) ++log.right;
    (isRight ? log.rightLog : log.wrongLog) += draw.issue + ": " + shown + "      中" +
                                               std::to_string(hits) + "      " + log.prediction +
                                               kLineEnd;
}

// The first draw cannot be judged, yet counts among the wrong ones.
std::string Report(const FormulaTest& test, const TestLog& log) {
    const std::string lineEnds = std::string(kLineEnd) + kLineEnd;
    return "本期" + TargetWord(test.target) + "胆码：范围>=" + test.low + "<=" + test.high +
           kLineEnd + std::to_string(WholePart(log.lastIssue) + 1) + ":   " + log.prediction +
           kLineEnd + "正确率:" +
           NumberText(static_cast<double>(log.right) / static_cast<double>(log.draws) * 100) +
           "%,---" + kLineEnd + "共正确:" + std::to_string(log.right) +
           "期.共错误:" + std::to_string(log.draws - log.right) +
           "期，以下是正确的号码和期号:" + lineEnds + log.rightLog + lineEnds +
           "以下是错误的期号和号码：" + lineEnds + log.wrongLog;
}

std::string Remark(const TestLog& log) {
    return "机会线：同样多的号码随便选，正确率 " + InPercent(log.chances / log.draws) +
           "（第一期没有上期，不算对）。";
}

// The balls that the formulas name for the draw behind the last of these.
RedSet NamedBalls(std::span<const Draw> earlier, const std::vector<std::string>& formulas,
                  FormulaTarget target) {
    RedSet balls;
    if (earlier.empty()) return balls;
    std::string errorText;
    const auto list = EvaluateFormulas(earlier.back(), formulas, target, errorText);
    if (!list) return balls;
    const int last = target == FormulaTarget::kBlue ? kBlues : kReds;
    const std::vector<std::string> items = Split(*list, ",");
    for (int ball = 1; ball <= last; ++ball) {
        const std::string text = TwoDigits(ball);
        const std::string name = target == FormulaTarget::kTail ? TailOf(text) : text;
        if (std::ranges::find(items, name) != items.end()) balls.Add(ball);
    }
    return balls;
}

}  // namespace

std::vector<NumberSource> FormulaSources(std::vector<std::string> formulas, FormulaTarget target,
                                         double low, double high) {
    const int most = target == FormulaTarget::kBlue ? 1 : kRedsInDraw;
    const CountRange range{static_cast<int>(std::ceil(std::clamp(low, 0.0, most + 1.0))),
                           static_cast<int>(std::floor(std::clamp(high, -1.0, 1.0 * most)))};
    const bool oneIsEnough = range.low == 1 && range.high == most;
    if (formulas.empty() || range.low > range.high) return {};
    if (target != FormulaTarget::kRed && !oneIsEnough) return {};
    return {{.name = "自助" + TargetWord(target) + "公式",
             .range = range,
             .isBlue = target == FormulaTarget::kBlue,
             .numbers = [formulas = std::move(formulas), target](std::span<const Draw> earlier) {
                 return NamedBalls(earlier, formulas, target);
             }}};
}

std::string TargetWord(FormulaTarget target) {
    switch (target) {
        case FormulaTarget::kRed:
            return "红球";
        case FormulaTarget::kBlue:
            return "蓝球";
        case FormulaTarget::kTail:
            break;
    }
    return "尾数";
}

std::optional<std::string> EvaluateFormulas(const Draw& draw,
                                            const std::vector<std::string>& formulas,
                                            FormulaTarget target, std::string& errorText) {
    const FormulaNames names(draw);
    std::string list;
    for (const std::string& formula : formulas) {
        // A formula that is too long is refused as it is.
        const std::string expression =
            formula.size() > kLongestExpression ? formula : names.Fill(formula);
        std::string reason;
        const auto value = EvaluateNumber(expression, reason);
        if (!value) {
            errorText = "公式" + Quoted(formula) + "代入" + draw.issue + "期的号码后是" +
                        Quoted(expression) + "，" + reason + "！";
            return std::nullopt;
        }
        std::string item = WholeText(*value);
        if (target == FormulaTarget::kTail) item = TailOf(item);
        if (!Contains(list, item)) list += item + ",";
    }
    if (!list.empty()) list.pop_back();
    ReplaceIn(list, "00", "10");
    return target == FormulaTarget::kTail && list == "10" ? "00" : list;
}

int FormulaHits(const Draw& draw, const std::string& values, FormulaTarget target) {
    int hits = 0;
    CountCommonBalls(TargetText(draw, target), values, 0, 0, hits);
    return hits;
}

// The balls of one number or tail that the values name are a class; one that stands twice weighs
// two.
double ChanceOfFormulaHits(const std::string& values, FormulaTarget target, double low,
                           double high) {
    constexpr int kTails = 10;
    const bool isTail = target == FormulaTarget::kTail;
    const bool isBlue = target == FormulaTarget::kBlue;
    const int balls = isBlue ? kBlues : kReds;
    std::vector<BallClass> classes;
    for (int number = isTail ? 0 : 1; number <= (isTail ? kTails - 1 : balls); ++number) {
        BallClass named{1, 0};
        CountCommonBalls(TwoDigits(number), values, 0, 0, named.weight);
        if (isTail) named.size = (balls - number) / kTails + (number > 0 ? 1 : 0);
        if (named.weight > 0) classes.push_back(named);
    }
    return ChanceOfWeight(classes, balls, isBlue ? 1 : kRedsInDraw, low, high);
}

std::optional<FormulaTestReport> TestFormulas(Session& session, const FormulaTest& test, Run& run) {
    const auto formulas = LoadFormulaList(session);
    if (!formulas) return std::nullopt;
    const auto draws = ReadDraws(session, test.range);
    if (!draws) return std::nullopt;
    if (draws->empty()) {
        session.host.ShowMessage("所选期号范围内没有开奖数据！");
        return std::nullopt;
    }
    TestLog log;
    for (const Draw& draw : *draws) {
        if (!run.SlowStep(log.draws, static_cast<double>(draws->size()))) return std::nullopt;
        std::string errorText;
        auto prediction = EvaluateFormulas(draw, *formulas, test.target, errorText);
        if (!prediction) session.host.ShowMessage(errorText);
        if (!prediction || prediction->empty()) return std::nullopt;
        if (log.draws++ > 0) {
            Judge(draw, test, log);
            log.chances +=
                ChanceOfFormulaHits(log.prediction, test.target, LowOf(test), HighOf(test));
        }
        log.lastIssue = draw.issue;
        log.prediction = std::move(*prediction);
    }
    return FormulaTestReport{Report(test, log), Remark(log)};
}

}  // namespace ssq
