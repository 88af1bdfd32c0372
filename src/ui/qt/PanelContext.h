// What every panel is given.
#pragma once

#include <QString>
#include <string>

namespace ssq {

class Desktop;
struct Session;

struct PanelContext {
    Session& session;
    Desktop& desktop;
};

inline QString Qs(const std::string& text) {
    return QString::fromStdString(text);
}

}  // namespace ssq
