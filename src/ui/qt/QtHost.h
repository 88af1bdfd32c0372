// The Host over Qt: boxes through the Desktop, pumping through the application's event loop.
#pragma once

#include "ui/Host.h"

namespace ssq {

class Desktop;

class QtHost final : public Host {
  public:
    explicit QtHost(Desktop& desktop) : desktop_(desktop) {}

  protected:
    void DoShowBox(const std::string& title, const std::string& text) override;
    void DoPump() override;
    void DoSetWaiting(bool waiting) override;

  private:
    Desktop& desktop_;
};

}  // namespace ssq
