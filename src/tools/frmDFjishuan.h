// What a bet with bankers and a multiple bet cost.
#pragma once

#include "ui/qt/Panel.h"

class QBoxLayout;
class QComboBox;
class QLabel;
class QLineEdit;

namespace ssq {

class frmDFjishuan final : public Panel {
  public:
    frmDFjishuan(const PanelContext& context, QWidget* parent);

  private:
    void BuildBankerBet(QBoxLayout& column);
    void BuildMultipleBet(QBoxLayout& column);
    void PriceBankerBet();
    void PriceMultipleBet();

    QComboBox* bankers_;
    QComboBox* drags_;
    QComboBox* blues_;
    QLabel* bankerPrice_;
    QComboBox* multipleReds_;
    QComboBox* multipleBlues_;
    QLineEdit* multiplePrice_;
};

}  // namespace ssq
