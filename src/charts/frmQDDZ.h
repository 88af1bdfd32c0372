// The list of the number segments, to read beside their chart.
#pragma once

#include "ui/qt/Panel.h"

namespace ssq {

// Its class names it to the toolkit, since it is found again by it.
class frmQDDZ final : public Panel {
    Q_OBJECT

  public:
    explicit frmQDDZ(const PanelContext& context, QWidget* parent = nullptr);

    // At the right of a window, as far as the screen allows.
    void ShowBeside(const QWidget& window);
};

}  // namespace ssq
