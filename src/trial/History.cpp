#include "trial/History.h"

#include <algorithm>
#include <utility>

namespace ssq {

History::History(std::vector<Draw> oldestFirst) : draws_(std::move(oldestFirst)) {
    std::ranges::reverse(draws_);
    balls_.reserve(draws_.size());
    sets_.reserve(draws_.size());
    for (const Draw& draw : draws_) {
        balls_.push_back(draw.balls);
        sets_.push_back(draw.set);
    }
}

Before History::BeforeDraw(std::size_t index) const {
    const std::size_t newer = size() - index;
    return {std::span(draws_).subspan(newer), std::span(balls_).subspan(newer),
            std::span(sets_).subspan(newer)};
}

}  // namespace ssq
