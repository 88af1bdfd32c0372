// The one shell window: menu bar, range, banker recommendation, status bar.
#pragma once

#include <QMainWindow>
#include <memory>
#include <optional>

#include "acquire/Updates.h"
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
    PanelContext WithStatusBar();
    void BuildControls();
    void BuildMenus();
    void AddEntry(QMenu& menu, const MenuEntry& entry);
    void RunEntry(const MenuEntry& entry);
    void RunCommand(const MenuEntry& entry);
    void Load();
    // `panel` is 1 to 3; blanks around the text are dropped.
    void SetStatusPanel(const std::string& text, int panel);
    // How an update goes, in the third panel of the status bar.
    void TellUpdate(const std::string& text);
    void RefillCombos();
    void ShowLatestIssue();
    void UpdateAll();
    void TakeNewDraws();
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
    QPushButton* updateAll_ = nullptr;
    QLabel* statusPanels_[3] = {};
    PanelRuns learnRuns_;
    Updates updates_;
};

}  // namespace ssq
