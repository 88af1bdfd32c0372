// The thin row under every grid: looks for texts, says what was copied and what the selection sums
// up to, and holds the menu of the grid's other ways out.
#pragma once

#include <QWidget>

#include "ui/qt/PanelContext.h"

class QLabel;
class QLineEdit;
class QToolButton;

namespace ssq {

class GridView;

// Its parts are named after the grid, such as vs1_find, vs1_count, vs1_word, vs1_zoom and vs1_menu.
// It is shown while its grid is.
class GridStrip final : public QWidget {
  public:
    GridStrip(const PanelContext& context, GridView& view);

    // Ctrl+F opens the field, F3 and Shift+F3 go on. In a window with several grids the keys mean
    // the one with the focus, or the one where it was last.
    void OpenFind();
    void GoToHit(bool forwards);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void BuildFind();
    void BuildMenu();
    void AddShortcuts();
    static GridStrip* Meant(const QWidget& window);

    void NameGrid();
    void Find();
    void CloseFind();
    void ShowHits(int number);
    void ShowZoom();
    void ShowFigures();
    void RaiseMenu();
    bool FindKey(int key, Qt::KeyboardModifiers modifiers);

    PanelContext context_;
    GridView& view_;
    QWidget* findRow_;
    QLineEdit* find_;
    QLabel* count_;
    QLabel* word_;
    QToolButton* zoom_;
    QToolButton* menu_;
    int hitsShown_ = 0;
    qint64 lastUse_ = 0;  // the larger, the later
    bool telling_ = false;
};

}  // namespace ssq
