// What every modal panel is.
#pragma once

#include <QDialog>

#include "ui/qt/Panel.h"

class QVBoxLayout;

namespace ssq {

class PanelDialog : public QDialog {
  public:
    PanelDialog(const PanelContext& context, QWidget* parent, const Panel::Form& form);

  protected:
    Session& session() const { return context_.session; }
    const PanelContext& context() const { return context_; }

    // What the dialog's parts go into, from top to bottom.
    QVBoxLayout* column() const { return column_; }

    // Enter and F5 press it, and it stands out.
    void SetMainButton(QPushButton* button);

    // Besides Esc, Ctrl+W closes the dialog.
    void keyPressEvent(QKeyEvent* event) override;

  private:
    PanelContext context_;
    QVBoxLayout* column_;
    QPushButton* mainButton_ = nullptr;
};

}  // namespace ssq
