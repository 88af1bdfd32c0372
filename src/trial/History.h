// The draws of a blind test, and the view of those before one of them.
#pragma once

#include <span>
#include <vector>

#include "base/RedSet.h"
#include "draws/Draw.h"

namespace ssq {

// The draws before a draw, newest first, in the forms that methods ask for. All of the same size.
struct Before {
    std::span<const Draw> draws;
    std::span<const DrawBalls> balls;
    std::span<const RedSet> sets;

    std::size_t size() const { return draws.size(); }
};

class History {
  public:
    explicit History(std::vector<Draw> oldestFirst);

    // Draws count from 0, the oldest one.
    std::size_t size() const { return draws_.size(); }
    const Draw& operator[](std::size_t index) const { return draws_[size() - 1 - index]; }

    // What a method may see of the draws when it predicts that of the index, size() for the one
    // behind the newest.
    Before BeforeDraw(std::size_t index) const;

  private:
    std::vector<Draw> draws_;  // newest first, like the others
    std::vector<DrawBalls> balls_;
    std::vector<RedSet> sets_;
};

}  // namespace ssq
