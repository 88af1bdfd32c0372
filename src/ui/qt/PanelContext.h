// What every panel is given.
#pragma once

#include <functional>
#include <string>

namespace ssq {

class Desktop;
class NumbersAtHand;
struct Session;

struct PanelContext {
    Session& session;
    Desktop& desktop;
    // Puts conditions of a number filter behind those of the plan; empty in a window of its own.
    std::function<void(const std::string& conditions)> addToPlan = {};
    // Shows how an update goes in the main window's status line; empty in a window of its own.
    std::function<void(const std::string& text)> tellStatus = {};
    // To be called after the settings of banker learning have changed; empty likewise.
    std::function<void()> onBankerSettings = {};
    // What the open panels name for the next draw; null in a window of its own.
    NumbersAtHand* atHand = nullptr;
};

}  // namespace ssq
