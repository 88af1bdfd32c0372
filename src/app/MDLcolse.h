// Which entries a window keeps in its system menu.
#pragma once

namespace ssq {

struct SystemMenu {
    bool minimize = true;
    bool maximize = true;
    bool close = true;
};

// The usual menu is Restore, Move, Size, Minimize, Maximize, a separator, Close. With a flag above
// 0 its entries third and fourth from the end go, otherwise the last two.
SystemMenu EntriesLeft(int flag);

}  // namespace ssq
