// The log of kill learning runs.
#pragma once

#include <functional>
#include <string>

#include "ui/qt/PanelDialog.h"

namespace ssq {

class GridView;

class frmSHAMAxxjl final : public PanelDialog {
  public:
    // Told after a restore: the record's end issue and its number of learning draws.
    using OnRestored = std::function<void(const std::string& endIssue, int periods)>;

    // The result of exec() when the user asks for a learning run instead.
    static constexpr int kWantsLearning = Accepted + 1;

    frmSHAMAxxjl(const PanelContext& context, OnRestored onRestored, QWidget* parent = nullptr);

  private:
    void Load();
    void Restore();

    OnRestored onRestored_;
    GridView* vs1_;
};

}  // namespace ssq
