#include "acquire/Updates.h"

#include <utility>
#include <vector>

#include "acquire/BallOrder.h"
#include "acquire/KjData.h"
#include "acquire/Prizes.h"
#include "base/text.h"
#include "draws/Public_var.h"
#include "ui/Host.h"
#include "ui/Run.h"

namespace ssq {

class Updates::Watcher final : public RunWatcher {
  public:
    Watcher(const Window& window, const int& newest)
        : window_(window), newest_(newest), number_(newest) {}

    void ShowProgress(const std::string& text) override { window_.showStatus(text); }
    bool IsWanted() const override { return number_ == newest_; }

  private:
    const Window& window_;
    const int& newest_;
    int number_;
};

Updates::Updates(Session& session, Window window)
    : session_(session),
      window_(std::move(window)),
      entries_{{{"开奖数据", UpdateDraws, &Deployment::resultsHost},
                {"奖池信息", UpdatePrizes, &Deployment::resultsHost},
                {"出球顺序", UpdateBallOrder, &Deployment::orderHost}}} {}

const UpdateResult& Updates::RunOne(Entry& entry) {
    if (entry.underWay++ == 0) entry.written = 0;
    ++entry.newest;
    Watcher watcher(window_, entry.newest);
    Run run(session_.host, &watcher);
    const std::int32_t draws = session_.DrawCount;
    UpdateResult result = entry.update(session_, run, entry.written);
    --entry.underWay;
    if (!run.goesOn()) return entry.last;
    entry.last = std::move(result);
    if (session_.DrawCount != draws) window_.takeNewDraws();
    return entry.last;
}

void Updates::RunAlone(Kind kind) {
    Entry& entry = entries_[kind];
    const int before = entry.newest;
    const UpdateResult result = RunOne(entry);
    if (session_.host.stopping() || entry.newest != before + 1) return;
    window_.showStatus(entry.name + ("：" + StatusText(result)));
    if (!result.box.empty()) session_.host.ShowMessage(result.box);
}

void Updates::All() {
    ++allNewest_;
    Watcher watcher(window_, allNewest_);
    Run run(session_.host, &watcher);
    // One gateway for all three.
    const PageSource site(session_, run, session_.deployment.resultsHost);
    if (!run.goesOn()) return;
    std::vector<std::string> lines;
    std::string silentHost;
    std::string notes;
    for (Entry& entry : entries_) {
        const std::string& host = session_.deployment.*entry.host;
        if (!silentHost.empty() && host == silentHost) continue;
        UpdateResult result = RunOne(entry);
        if (!run.goesOn()) return;
        if (result.end == UpdateEnd::kNoPage) silentHost = host;
        // What is to be known of the source is the same for all three.
        if (!result.notes.empty()) notes = std::exchange(result.notes, {});
        lines.push_back(entry.name + ("：" + StatusText(result)));
    }
    const std::string sum = Join(lines, "；") + (notes.empty() ? "" : "（" + notes + "）");
    window_.showStatus(sum);
    session_.host.ShowMessage(sum.ends_with("。") ? sum : sum + "。");
}

}  // namespace ssq
