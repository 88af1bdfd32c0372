// The log of banker learning runs.
#pragma once

#include <vector>

#include "banker/LearningRecords.h"
#include "ui/qt/PanelDialog.h"

namespace ssq {

class GridView;

class frmxxjl final : public PanelDialog {
  public:
    // The result of exec() when the user asks for a learning run instead.
    static constexpr int kWantsLearning = Accepted + 1;

    explicit frmxxjl(const PanelContext& context, QWidget* parent = nullptr);

  private:
    void Load();
    void Restore();

    GridView* vs1_;
    std::vector<LearningRecord> records_;
};

}  // namespace ssq
