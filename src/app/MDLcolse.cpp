#include "app/MDLcolse.h"

namespace ssq {

SystemMenu EntriesLeft(int flag) {
    SystemMenu left;
    if (flag > 0) {
        // count-3 is Maximize; with it gone, position count-4 is Minimize.
        left.maximize = false;
        left.minimize = false;
    } else {
        left.close = false;
    }
    return left;
}

}  // namespace ssq
