// The log of banker learning runs.
#pragma once

#include <QDialog>
#include <vector>

#include "banker/LearningRecords.h"
#include "ui/qt/PanelContext.h"

namespace ssq {

class GridView;

class frmxxjl final : public QDialog {
  public:
    explicit frmxxjl(const PanelContext& context, QWidget* parent = nullptr);

  private:
    void Load();
    void Restore();

    PanelContext context_;
    GridView* vs1_;
    std::vector<LearningRecord> records_;
};

}  // namespace ssq
