// A titled group whose caption never widens its window.
#pragma once

#include <QGroupBox>

namespace ssq {

// For captions that hold texts of the user. title() is the whole caption; what does not fit on
// screen is cut short there and stands in the tooltip. Use it as any QGroupBox.
class ElidedGroup final : public QGroupBox {
    Q_OBJECT

  public:
    using QGroupBox::QGroupBox;

    QSize minimumSizeHint() const override;
    QSize sizeHint() const override { return minimumSizeHint(); }

  protected:
    void initStyleOption(QStyleOptionGroupBox* option) const override;
    bool event(QEvent* event) override;

  private:
    QString ShownCaption() const;
};

}  // namespace ssq
