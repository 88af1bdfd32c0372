#include "ui/Host.h"

#include <algorithm>
#include <chrono>

namespace ssq {

namespace {

constexpr long long kPumpIntervalNs = 10'000'000;

long long NowNs() {
    return std::chrono::duration_cast<std::chrono::nanoseconds>(
               std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

}  // namespace

template <typename Action>
void Host::Interrupt(Action action) {
    PumpListener* listener = listeners_.empty() ? nullptr : listeners_.back();
    if (listener) listener->BeforePump();
    action();
    if (listener) listener->AfterPump();
    lastPumpNs_ = NowNs();
}

void Host::ShowMessage(const std::string& text) {
    ShowBox("提示", text);
}

void Host::ShowBox(const std::string& title, const std::string& text) {
    if (stopping_) return;
    Interrupt([&] { DoShowBox(title, text); });
}

bool Host::IsPumpDue() const {
    return !stopping_ && NowNs() - lastPumpNs_ >= kPumpIntervalNs;
}

void Host::LookAtClock() {
    yieldsSinceLook_ = 0;
    if (!IsPumpDue()) return;
    Interrupt([&] { DoPump(); });
}

void Host::RemovePumpListener(PumpListener* listener) {
    std::erase(listeners_, listener);
}

}  // namespace ssq
