// The online sales panel.
#pragma once

#include <QWidget>

#include "ui/qt/PanelContext.h"

class QPushButton;

namespace ssq {

class GridView;
class IssueCombo;

class frmSale final : public QWidget {
  public:
    frmSale(const PanelContext& context, QWidget* parent);

  private:
    void Query();
    void Update();

    PanelContext context_;
    IssueCombo* start_ = nullptr;
    IssueCombo* end_ = nullptr;
    QPushButton* update_ = nullptr;
    GridView* vs1_ = nullptr;
};

}  // namespace ssq
