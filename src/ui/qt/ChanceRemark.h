// The line under a panel's results: what as many numbers picked at random would reach.
#pragma once

#include <QLabel>
#include <string>

#include "ui/qt/PanelContext.h"

namespace ssq {

// Its name is lblJiHui. Empty until a run has ended; it keeps its room, so that nothing moves then.
class ChanceRemark final : public QLabel {
    Q_OBJECT

  public:
    explicit ChanceRemark(const PanelContext& context, QWidget* parent = nullptr);

    // The remark, and behind it the link 盲测 that opens the blind test with the settings; without
    // settings, or without a remark, there is no link.
    void Show(const std::string& remark, ControlTexts blindTest = {});

    // The remark as it is read, the word of the link included.
    QString plainText() const;

  private:
    ControlTexts blindTest_;
};

}  // namespace ssq
