// A presentation without a screen.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "ui/Host.h"

namespace ssq {

// Records the boxes, counts the pumps, and lets a test act as the user who uses a pump.
class TestHost final : public Host {
  public:
    struct Box {
        std::string title;
        std::string text;

        bool operator==(const Box&) const = default;
    };

    std::vector<std::string> Texts() const {
        std::vector<std::string> texts;
        for (const Box& box : boxes) texts.push_back(box.text);
        return texts;
    }

    std::vector<Box> boxes;
    int pumps = 0;                 // boxes not counted
    std::function<void()> onPump;  // run in each pump and while a box stands

  protected:
    void DoShowBox(const std::string& title, const std::string& text) override {
        boxes.push_back({title, text});
        Act();
    }
    void DoPump() override {
        ++pumps;
        Act();
    }

  private:
    // A copy, since the action may replace itself.
    void Act() const {
        if (const auto action = onPump) action();
    }
};

}  // namespace ssq
