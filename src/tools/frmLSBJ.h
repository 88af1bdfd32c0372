// The draws that a set of numbers would have caught.
#pragma once

#include <string>
#include <vector>

#include "ui/qt/Panel.h"

class QBoxLayout;
class QLabel;
class QLineEdit;
class QListWidget;

namespace ssq {

class frmLSBJ final : public Panel {
  public:
    frmLSBJ(const PanelContext& context, QWidget* parent);

  private:
    struct CaughtList {
        QListWidget* list;
        QLabel* count;

        void Show(const std::vector<std::string>& draws) const;
    };

    CaughtList AddList(QBoxLayout& row, const char* digit, const char* word);
    void Compare();

    QLineEdit* txtHM_;
    CaughtList six_;
    CaughtList five_;
    CaughtList four_;
};

}  // namespace ssq
