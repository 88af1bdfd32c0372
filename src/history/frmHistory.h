// The draw history: a browser of draws and their prize details.
#pragma once

#include <QWidget>

#include "history/DrawHistory.h"
#include "ui/qt/PanelContext.h"

class QCheckBox;
class QHBoxLayout;
class QLineEdit;

namespace ssq {

class GridView;
class IssueCombo;

class frmHistory final : public QWidget {
  public:
    explicit frmHistory(const PanelContext& context, QWidget* parent = nullptr);

  private:
    struct FilterControls {
        QCheckBox* ticked;
        QLineEdit* from;
        QLineEdit* to;

        NumberFilter Read() const;
    };

    static FilterControls AddFilter(QHBoxLayout* row, const char* name, const QString& caption,
                                    const char* fromName, const char* toName);
    void Query();

    PanelContext context_;
    IssueCombo* start_;
    IssueCombo* end_;
    FilterControls pool_;
    FilterControls firstPrizes_;
    GridView* vs1_;
};

}  // namespace ssq
