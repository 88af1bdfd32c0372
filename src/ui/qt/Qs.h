// The core's texts for the toolkit.
#pragma once

#include <QString>
#include <string>

namespace ssq {

inline QString Qs(const std::string& text) {
    return QString::fromStdString(text);
}

}  // namespace ssq
