// The list of the number segments, to read beside their chart.
#pragma once

#include "ui/qt/Panel.h"

namespace ssq {

class frmQDDZ final : public Panel {
    Q_OBJECT  // it is found again by its class

  public:
    explicit frmQDDZ(const PanelContext& context, QWidget* parent = nullptr);

    // At the right of a window, as far as the screen allows.
    void ShowBeside(const QWidget& window);
};

}  // namespace ssq
