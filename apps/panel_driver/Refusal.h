// Why a command was not carried out.
#pragma once

#include <QString>
#include <stdexcept>

namespace ssq {

// Thrown by the commands and caught by the Driver, which puts the text into the reply's `error`.
class Refusal final : public std::runtime_error {
  public:
    explicit Refusal(const QString& text) : std::runtime_error(text.toStdString()) {}
};

}  // namespace ssq
