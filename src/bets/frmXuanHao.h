// The panel from results to bets: a plan is typed, and what remains of all combinations is listed,
// counted and held against past draws.
#pragma once

#include <functional>
#include <optional>
#include <random>
#include <span>
#include <string>
#include <vector>

#include "bets/BetAttributes.h"
#include "bets/BetList.h"
#include "bets/BetPlan.h"
#include "bets/ResultIntake.h"
#include "draws/Draw.h"
#include "ui/qt/Panel.h"

class QComboBox;
class QGroupBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QTimer;
class QVBoxLayout;

namespace ssq {

class BallBoard;
class GridView;
class IssueCombo;
class NumberedEdit;

class frmXuanHao final : public Panel {
  public:
    explicit frmXuanHao(const PanelContext& context, QWidget* parent = nullptr);

    void TakeNewDraws() override;

    // Lines behind those of the plan.
    void AddConditions(const std::string& lines);

    // The plan as it is typed now.
    std::string plan() const;

  protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void BuildTop(QVBoxLayout* column);
    void BuildPlan(QHBoxLayout* middle);
    void BuildBets(QHBoxLayout* middle);
    void BuildHistory(QVBoxLayout* column);
    void Load();
    void ReadHistory();

    // A computation of the plan as it is typed now, and its steps.
    void Compute();
    bool Count(Run& run);
    void ShowErrors(const std::vector<std::string>& told);
    // What the empty grids say.
    void ShowHints(bool hasErrors);
    void ShowNothing();
    void ShowBoard(const BetPlan& plan);
    // A press on a ball: the plan is another and computed at once.
    void TakePlan(const std::string& text);
    bool CheckPast(Run& run);
    // The results at hand for the draw behind that one.
    void ReadResults();
    void TakeIn();
    std::span<const Draw> DrawsToPrevious() const;
    // The draw to look back to, empty without one; nothing for an issue that is not on file.
    std::optional<RedSet> Previous() const;

    void Order();
    void ShowList();
    void ShowPage();
    void TakeAtRandom();
    // Tells why there is none.
    bool HasBets();

    void SavePlan();
    void OpenPlan();
    void CopyBets();
    void SaveBets();
    // Asks for a file to write text to; empty when the user does not want to.
    std::string AskFile(const QString& pattern);
    // Tells the user what became of it.
    bool WriteFile(const std::string& file, const std::string& text);

    NumberedEdit* txtFangAn_ = nullptr;
    BallBoard* board_ = nullptr;
    IssueCombo* cboShangQi_ = nullptr;
    QLabel* LBLcuo_ = nullptr;
    QLabel* LBLSY_ = nullptr;
    QLabel* LBLJE_ = nullptr;
    QComboBox* cboYe_ = nullptr;
    QComboBox* cboPaixu_ = nullptr;
    QComboBox* cboYZ_ = nullptr;
    QLineEdit* txtN_ = nullptr;
    QGroupBox* betsGroup_ = nullptr;
    QGroupBox* historyGroup_ = nullptr;
    GridView* vs1_ = nullptr;
    GridView* vs2_ = nullptr;
    GridView* vs3_ = nullptr;
    QTimer* typing_ = nullptr;  // runs from the last key to the computation

    std::vector<Draw> draws_;  // all on file, oldest first
    BetColumns columns_;
    std::mt19937_64 random_{std::random_device{}()};

    std::vector<TakenResult> results_;
    std::optional<std::string> resultsAfter_;  // the issue they stand on

    // The last plan computed; without one nothing is listed.
    std::optional<BetPlan> plan_;
    RedSet previous_;
    BetList remaining_;
    BetList shown_;  // all that remain, or those taken at random
};

}  // namespace ssq
