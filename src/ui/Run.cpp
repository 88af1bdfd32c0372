#include "ui/Run.h"

#include "base/numbers.h"
#include "ui/Host.h"

namespace ssq {

void Run::Tell(const std::string& text) {
    if (watcher_ && goesOn()) watcher_->ShowProgress(text);
}

void Run::ShowLast() {
    if (total_ > 0) Tell(RateText(done_, total_));
}

bool Run::goesOn() const {
    return !host_.stopping() && (!watcher_ || watcher_->IsWanted());
}

bool Run::Look() {
    if (host_.IsPumpDue()) {
        ShowLast();
        if (!host_.YieldNow()) return false;
    }
    return goesOn();
}

}  // namespace ssq
