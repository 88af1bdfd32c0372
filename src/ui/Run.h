// The one idiom of long work.
#pragma once

#include <string>

namespace ssq {

class Host;

// What shows a run, and knows whether anybody still wants it.
class RunWatcher {
  public:
    virtual ~RunWatcher() = default;
    virtual void ShowProgress(const std::string& text) = 0;
    // False once the panel was closed or a newer run has taken this one's place.
    virtual bool IsWanted() const = 0;
};

// A run of an analysis: tells its step and the share done, hands control to the event loop, and
// answers whether to go on. After a "no" the run ends at once and shows nothing more.
class Run {
  public:
    // Without a watcher nothing is shown, and only the program's end ends the run.
    explicit Run(Host& host, RunWatcher* watcher = nullptr) : host_(host), watcher_(watcher) {}
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

    // The text of a step of the run, shown at once.
    void Tell(const std::string& text);

    // The share done, shown as a percentage with two decimals when the event loop has its turn
    // next. Cheap enough for every step of a hot loop.
    [[nodiscard]] bool Step(double done, double total) {
        done_ = done;
        total_ = total;
        return Yield();
    }

    // The same without a share.
    [[nodiscard]] bool Yield() { return ++steps_ % kStepsPerLook != 0 || Look(); }

    // Yield for work that waits: looks at the clock every time.
    [[nodiscard]] bool YieldNow() { return Look(); }

    // Step for work that takes some ms a step: looks at the clock every time.
    [[nodiscard]] bool SlowStep(double done, double total) {
        done_ = done;
        total_ = total;
        return Look();
    }

    // Shows the last share told, which the pace of the event loop may have left out.
    void ShowLast();

    bool goesOn() const;
    Host& host() const { return host_; }

  private:
    // A look at the clock costs about 20 ns, so one in 16 steps keeps a step near 1 ns.
    static constexpr unsigned kStepsPerLook = 16;

    bool Look();

    Host& host_;
    RunWatcher* watcher_;
    unsigned steps_ = 0;
    double done_ = 0;
    double total_ = 0;  // 0 while no share has been told
};

}  // namespace ssq
