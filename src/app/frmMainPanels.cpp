#include "app/frmMainPanels.h"

#include <QDialog>

#include "acquire/frmSale.h"
#include "app/frmMainPopups.h"
#include "banker/frmXUEXI.h"
#include "banker/frmxxjl.h"
#include "charts/frmZST.h"
#include "history/frmHistory.h"
#include "kill/frmSHAMA.h"
#include "workbench/frmShaHao.h"

namespace ssq {

namespace {

using MakePanel = std::unique_ptr<QWidget> (*)(const PanelContext&, QWidget* parent);

template <typename Panel>
std::unique_ptr<QWidget> Make(const PanelContext& context, QWidget* parent) {
    return std::make_unique<Panel>(context, parent);
}

const std::map<QString, MakePanel>& Makers() {
    static const std::map<QString, MakePanel> kMakers = {
        {QStringLiteral("frmHistory"), Make<frmHistory>},
        {QStringLiteral("frmSale"), Make<frmSale>},
        {QStringLiteral("frmSHAMA"), Make<frmSHAMA>},
        {QStringLiteral("frmShaHao"), Make<frmShaHao>},
        {QStringLiteral("frmXUEXI"), Make<frmXUEXI>},
        {QStringLiteral("frmZST"), Make<frmZST>},
        {QStringLiteral("frmxxjl"), Make<frmxxjl>},
    };
    return kMakers;
}

}  // namespace

PanelRegistry::PanelRegistry(const PanelContext& context) : context_(context) {}

PanelRegistry::~PanelRegistry() = default;

bool PanelRegistry::Knows(const QString& name) {
    return Makers().contains(name);
}

QWidget& PanelRegistry::Get(const QString& name) {
    std::unique_ptr<QWidget>& panel = open_[name];
    if (!panel) {
        panel = Makers().at(name)(context_, nullptr);
        AttachPopup(context_, *panel);
    }
    return *panel;
}

std::unique_ptr<QDialog> PanelRegistry::MakeDialog(const QString& name, QWidget* parent) const {
    std::unique_ptr<QWidget> panel = Makers().at(name)(context_, parent);
    return std::unique_ptr<QDialog>(static_cast<QDialog*>(panel.release()));
}

}  // namespace ssq
