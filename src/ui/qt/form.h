// The pieces that panels are built from, so that a panel's constructor reads like its table of
// controls and all panels look alike. Names are given as in that table and become objectNames.
#pragma once

#include <QString>
#include <functional>
#include <initializer_list>
#include <vector>

#include "ui/qt/PanelContext.h"

class QBoxLayout;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QHBoxLayout;
class QImage;
class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;
class QRadioButton;
class QWidget;

namespace ssq {

class GridView;
class IssueCombo;
class LineChart;

// A titled group at the end of `layout`, filled from top to bottom.
QGroupBox* AddGroup(QBoxLayout* layout, const char* name, const QString& caption);

// A row of controls at the end of a group or column; what is added stands at the left, and goes on
// in the next line of a narrow window.
QHBoxLayout* AddRow(QBoxLayout* layout);
QHBoxLayout* AddRow(QGroupBox* group);

// Labels of controls carry no name unless one is given.
IssueCombo* AddIssueCombo(QBoxLayout* row, const char* name, const QString& label,
                          const char* labelName = nullptr);
// A button behind a range of issues, whose menu lets the range span the newest 30, 50, 100 or all
// draws.
QPushButton* AddPeriodMenu(QBoxLayout* row, IssueCombo& start, IssueCombo& end,
                           int drawsBefore = 0);
QComboBox* AddCombo(QBoxLayout* row, const char* name, const QString& label,
                    std::initializer_list<const char*> entries = {});
// A combo that takes a typed number, too.
QComboBox* AddFreeCombo(QBoxLayout* row, const char* name, const QString& label,
                        std::initializer_list<const char*> entries);
QLineEdit* AddTextBox(QBoxLayout* row, const char* name, const QString& label);
QRadioButton* AddOption(QBoxLayout* row, const char* name, const QString& caption);
QCheckBox* AddCheckBox(QBoxLayout* row, const char* name, const QString& caption);
QLabel* AddLabel(QBoxLayout* row, const char* name, const QString& text);
QPushButton* AddButton(QBoxLayout* row, const char* name, const QString& caption,
                       std::function<void()> onClick);

// An entry at the end of a menu.
void AddEntry(QMenu& menu, const char* name, const QString& caption, std::function<void()> action);

// An entry of the popup that the right button raises over a grid.
struct PopupEntry {
    const char* name;
    const char* caption;
    std::function<void()> action;
};

// Declares the popup of a grid. It is not raised while `isReady` answers false.
void SetPopup(const PanelContext& context, GridView& view, const char* name, const char* caption,
              std::vector<PopupEntry> entries, std::function<bool()> isReady = {});

// A grid that takes all the room there is, with its strip. Until it is given another, its popup
// copies the selection.
GridView* AddGrid(const PanelContext& context, QBoxLayout* layout, const char* name);
GridView* AddGrid(const PanelContext& context, QGroupBox* group, const char* name);

// Ctrl+C copies the picture of a chart; its popup does, too, and saves it as PNG.
void OfferPicture(const PanelContext& context, QWidget& chart, std::function<QImage()> picture);

// A line chart that takes all the room there is, with its picture to offer.
LineChart* AddLineChart(const PanelContext& context, QBoxLayout* layout, const char* name);

}  // namespace ssq
