// What the analyses may ask of the presentation.
#pragma once

#include <string>
#include <vector>

namespace ssq {

// Told before and after the presentation handles events in the middle of a run, so that work in
// progress (an open transaction) can be put in order first.
class PumpListener {
  public:
    virtual ~PumpListener() = default;
    virtual void BeforePump() = 0;
    virtual void AfterPump() = 0;
};

class Host {
  public:
    Host() = default;
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;
    virtual ~Host() = default;

    // A modal box with the information icon, the title "提示" and an OK button.
    // Returns after OK; shows nothing once the program is stopping.
    void ShowMessage(const std::string& text);

    // The same box under another title; an empty title shows none.
    void ShowBox(const std::string& title, const std::string& text);

    // Hands control to the event loop when some 10 ms have passed since it last had it; cheap
    // enough for every step of a hot loop. False when the program is being closed: the run then
    // ends at once and shows nothing.
    [[nodiscard]] bool Yield() {
        if (++yieldsSinceLook_ >= kYieldsPerLook) LookAtClock();
        return !stopping_;
    }

    // Yield for steps that take some ms each, such as the fetch of a page: looks at the clock every
    // time.
    [[nodiscard]] bool YieldNow() {
        LookAtClock();
        return !stopping_;
    }

    // Whether the next look at the clock would hand control over.
    bool IsPumpDue() const;

    // The next look at the clock hands control over, however lately that was done.
    void OwePump() { lastPumpNs_ = 0; }

    // From now on Yield answers false and no box appears.
    void Stop() { stopping_ = true; }
    bool stopping() const { return stopping_; }

    // The listener added last is the one told; nested runs nest their listeners.
    void AddPumpListener(PumpListener* listener) { listeners_.push_back(listener); }
    void RemovePumpListener(PumpListener* listener);

  protected:
    virtual void DoShowBox(const std::string& title, const std::string& text) = 0;
    virtual void DoPump() = 0;
    // The pointer over the program's windows tells that it is at work, or no longer.
    virtual void DoSetWaiting(bool /*waiting*/) {}

  private:
    friend class WaitCursor;

    // A look at the clock costs about 20 ns, so one in 16 yields keeps a yield near 1 ns.
    static constexpr int kYieldsPerLook = 16;

    void LookAtClock();

    template <typename Action>
    void Interrupt(Action action);

    int yieldsSinceLook_ = 0;
    long long lastPumpNs_ = 0;
    bool stopping_ = false;
    std::vector<PumpListener*> listeners_;
};

// While it lives the windows show the wait cursor.
class WaitCursor {
  public:
    explicit WaitCursor(Host& host) : host_(host) { host_.DoSetWaiting(true); }
    ~WaitCursor() { host_.DoSetWaiting(false); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;

  private:
    Host& host_;
};

}  // namespace ssq
