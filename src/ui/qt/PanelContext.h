// What every panel is given.
#pragma once

#include <functional>
#include <map>
#include <string>

namespace ssq {

class Desktop;
class NumbersAtHand;
struct Session;

// What is to stand in controls of a panel, by their names; the others keep what they start with.
using ControlTexts = std::map<std::string, std::string>;

struct PanelContext {
    Session& session;
    Desktop& desktop;
    // Puts conditions of a number filter behind those of the plan; empty in a window of its own.
    std::function<void(const std::string& conditions)> addToPlan = {};
    // Shows how an update goes in the main window's status line; empty in a window of its own.
    std::function<void(const std::string& text)> tellStatus = {};
    // The plan as it stands in the open number filter; empty without one.
    std::function<std::string()> standingPlan = {};
    // Brings up the blind test with these settings.
    std::function<void(const ControlTexts& settings)> openBlindTest = {};
    // To be called after the settings of banker learning have changed; empty likewise.
    std::function<void()> onBankerSettings = {};
    // What the open panels name for the next draw; null in a window of its own.
    NumbersAtHand* atHand = nullptr;
};

}  // namespace ssq
