// The panels that the menu opens: one instance of each, made on first use.
#pragma once

#include <QString>
#include <map>
#include <memory>

#include "ui/qt/PanelContext.h"

class QDialog;
class QWidget;

namespace ssq {

class PanelRegistry {
  public:
    explicit PanelRegistry(const PanelContext& context);
    ~PanelRegistry();

    // Whether this build has the panel.
    static bool Knows(const QString& name);

    // The one instance of a modeless panel.
    QWidget& Get(const QString& name);

    // A new modal panel, as its load step fills it anew each time.
    std::unique_ptr<QDialog> MakeDialog(const QString& name, QWidget* parent) const;

  private:
    PanelContext context_;
    std::map<QString, std::unique_ptr<QWidget>> open_;
};

}  // namespace ssq
