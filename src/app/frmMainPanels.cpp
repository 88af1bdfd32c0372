#include "app/frmMainPanels.h"

#include <QDialog>

#include "acquire/frmSale.h"
#include "banker/frmXUEXI.h"
#include "banker/frmxxjl.h"
#include "bets/frmXuanHao.h"
#include "charts/frmLHzst.h"
#include "charts/frmWeiHangLie.h"
#include "charts/frmWeiShu.h"
#include "charts/frmWeizhi1107568.h"
#include "charts/frmZST.h"
#include "history/frmHistory.h"
#include "kill/frmSHAMA.h"
#include "stats/frmBianMa.h"
#include "stats/frmHongHaomaGens.h"
#include "stats/frmJianGe.h"
#include "stats/frmLengRe.h"
#include "tools/ZDY_XDM.h"
#include "tools/frmDFjishuan.h"
#include "tools/frmLSBJ.h"
#include "tools/frmMtoN.h"
#include "trial/frmMangCe.h"
#include "ui/qt/placing.h"
#include "workbench/frmShaHao.h"
#include "wrap/frm18MaWeiHong.h"
#include "wrap/frmWeiLan.h"

namespace ssq {

namespace {

template <typename Window>
using Make = Window* (*)(const PanelContext&, QWidget* owner);

template <typename Kind, typename Window>
Window* New(const PanelContext& context, QWidget* owner) {
    return new Kind(context, owner);
}

template <typename Kind>
std::pair<const QString, Make<Panel>> Modeless(const char* name) {
    return {QString::fromUtf8(name), New<Kind, Panel>};
}

const std::map<QString, Make<Panel>>& Panels() {
    static const std::map<QString, Make<Panel>> kPanels = {
        Modeless<ZDY_XDM>("ZDY_XDM"),
        Modeless<frm18MaWeiHong>("frm18MaWeiHong"),
        Modeless<frmBianMa>("frmBianMa"),
        Modeless<frmDFjishuan>("frmDFjishuan"),
        Modeless<frmHeZhi>("frmHeZhi"),
        Modeless<frmHistory>("frmHistory"),
        Modeless<frmHongHaomaGens>("frmHongHaomaGens"),
        Modeless<frmJianGe>("frmJianGe"),
        Modeless<frmLHzst>("frmLHzst"),
        Modeless<frmLSBJ>("frmLSBJ"),
        Modeless<frmLengRe>("frmLengRe"),
        Modeless<frmMangCe>("frmMangCe"),
        Modeless<frmMtoN>("frmMtoN"),
        Modeless<frmSHAMA>("frmSHAMA"),
        Modeless<frmSale>("frmSale"),
        Modeless<frmShaHao>("frmShaHao"),
        Modeless<frmWeiHangLie>("frmWeiHangLie"),
        Modeless<frmWeiLan>("frmWeiLan"),
        Modeless<frmWeiShu>("frmWeiShu"),
        Modeless<frmWeizhi1107568>("frmWeizhi1107568"),
        Modeless<frmXuanHao>("frmXuanHao"),
        Modeless<frmZST>("frmZST"),
    };
    return kPanels;
}

const std::map<QString, Make<QDialog>>& Dialogs() {
    static const std::map<QString, Make<QDialog>> kDialogs = {
        {QStringLiteral("frmXUEXI"), New<frmXUEXI, QDialog>},
        {QStringLiteral("frmxxjl"), New<frmxxjl, QDialog>},
    };
    return kDialogs;
}

}  // namespace

PanelRegistry::PanelRegistry(const PanelContext& context, QWidget& owner)
    : context_(context), owner_(owner) {
    context_.addToPlan = [this](const std::string& conditions) { AddToPlan(conditions); };
    context_.standingPlan = [this] { return StandingPlan(); };
    context_.openBlindTest = [this](const ControlTexts& settings) { OpenBlindTest(settings); };
    context_.atHand = &atHand_;
}

bool PanelRegistry::Knows(const QString& name) {
    return Panels().contains(name) || Dialogs().contains(name);
}

void PanelRegistry::Open(const QString& name) {
    QPointer<Panel>& panel = open_[name];
    if (!panel || panel->isClosed()) panel = Panels().at(name)(context_, &owner_);
    BringUp(*panel);
}

int PanelRegistry::RunDialog(const QString& name) {
    const std::unique_ptr<QDialog> dialog(Dialogs().at(name)(context_, &owner_));
    return dialog->exec();
}

void PanelRegistry::AddToPlan(const std::string& conditions) {
    if (conditions.empty()) return;
    const QString name = QStringLiteral("frmXuanHao");
    Open(name);
    static_cast<frmXuanHao*>(open_[name].data())->AddConditions(conditions);
}

std::string PanelRegistry::StandingPlan() const {
    const auto filter = open_.find(QStringLiteral("frmXuanHao"));
    if (filter == open_.end() || !filter->second || filter->second->isClosed()) return {};
    return static_cast<const frmXuanHao*>(filter->second.data())->plan();
}

void PanelRegistry::OpenBlindTest(const ControlTexts& settings) {
    const QString name = QStringLiteral("frmMangCe");
    Open(name);
    static_cast<frmMangCe*>(open_[name].data())->TakeSettings(settings);
}

void PanelRegistry::TakeNewDraws() {
    for (const auto& [name, panel] : open_) {
        if (panel && !panel->isClosed()) panel->TakeNewDraws();
    }
}

}  // namespace ssq
