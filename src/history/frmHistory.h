// The browser of the draw history.
#pragma once

#include "history/DrawHistory.h"
#include "ui/qt/RangePanel.h"

class QCheckBox;
class QLineEdit;

namespace ssq {

class frmHistory final : public RangePanel {
  public:
    explicit frmHistory(const PanelContext& context, QWidget* parent = nullptr);

  private:
    struct FilterControls {
        QCheckBox* ticked;
        QLineEdit* from;
        QLineEdit* to;

        NumberFilter Read() const;
    };

    FilterControls AddFilter(const char* name, const QString& caption, const char* fromName,
                             const char* toName);
    bool Query();

    FilterControls pool_;
    FilterControls firstPrizes_;
};

}  // namespace ssq
