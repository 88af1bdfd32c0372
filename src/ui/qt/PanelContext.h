// What every panel is given.
#pragma once

namespace ssq {

class Desktop;
struct Session;

struct PanelContext {
    Session& session;
    Desktop& desktop;
};

}  // namespace ssq
