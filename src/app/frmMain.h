// The one shell window: menu bar, range, banker recommendation, status bar.
#pragma once

#include <QMainWindow>
#include <memory>
#include <optional>

#include "ui/qt/Panel.h"

class QGroupBox;
class QLabel;
class QMenu;
class QPushButton;
class QVBoxLayout;

namespace ssq {

class ChanceRemark;
class GridView;
class IssueCombo;
class PanelRegistry;
class ProgressStrip;
struct BankerSettings;
struct MenuEntry;

class frmMain final : public QMainWindow {
  public:
    explicit frmMain(const PanelContext& context);
    ~frmMain() override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    PanelContext WithModeLine();
    void BuildControls();
    void BuildMenus();
    void AddEntry(QMenu& menu, const MenuEntry& entry);
    void RunEntry(const MenuEntry& entry);
    void RunCommand(const MenuEntry& entry);
    void Load();
    // `panel` is 1 or 2; blanks around the text are dropped.
    void SetStatusPanel(const std::string& text, int panel);
    void RefillCombos();
    void ShowLatestIssue();
    void UpdateDrawsOfWindow();
    void ShowLearningMode(const std::optional<BankerSettings>& settings);
    void Learn();
    void Recommend();
    void BuyTickets();

    PanelContext context_;
    std::unique_ptr<PanelRegistry> panels_;
    IssueCombo* start_ = nullptr;
    IssueCombo* end_ = nullptr;
    QPushButton* recommendButton_ = nullptr;
    QGroupBox* resultGroup_ = nullptr;
    GridView* vs1_ = nullptr;
    ChanceRemark* remark_ = nullptr;
    ProgressStrip* progress_ = nullptr;
    QLabel* statusPanels_[2] = {};
    PanelRuns learnRuns_;
};

}  // namespace ssq
