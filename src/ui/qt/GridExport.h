// The ways out of a grid: the copy commands, and files and paper.
#pragma once

#include <QString>
#include <functional>
#include <string>

#include "ui/qt/PanelContext.h"

class QImage;

namespace ssq {

class GridView;

void PutOnClipboard(const std::string& text);

// The selection as comma text (SelectionText) and as conditions (SelectionConditions), these also
// to the plan; the view's strip says what was copied.
void CopySelection(const GridView& view);
void CopySelectionAsCondition(const GridView& view);
void AddSelectionToPlan(const PanelContext& context, const GridView& view);

// The selection with its headings as a table: tabs between cells and, up to 100,000 cells, also
// HTML with the grid's colours.
void CopyTable(const GridView& view);

// A file's name to begin with: what it shows and the latest issue.
QString ProposedName(const PanelContext& context, const QString& title);

// Asks for a file to write; empty when the user gives none, or does not replace one that stands
// there.
struct FileWish {
    QString pattern;          // such as "*.csv"
    QString ending;           // comes behind a name without one
    QString proposed = {};    // a name to begin with
    bool endsAlways = false;  // the ending comes behind every name
};
QString AskFileToWrite(const PanelContext& context, const FileWish& wish);

// "保存成功！", or "保存失败！" with the reason, with the file's path.
void TellSaved(const PanelContext& context, const QString& file, bool saved, const QString& reason);

// Asks for a file name, to which ".xls" is always added, and writes the grid there in its own
// order; a blank name stops without a word.
void SaveGridAsExcel(const PanelContext& context, const GridView& view);

// The grid in its own order as comma-separated values; as it is shown, as one picture, as pages of
// a PDF, and on paper.
void SaveGridAsCsv(const PanelContext& context, const GridView& view);
void SaveGridAsPicture(const PanelContext& context, const GridView& view);
void SaveGridAsPdf(const PanelContext& context, const GridView& view);
void PrintGrid(const PanelContext& context, const GridView& view);

// Asks for a file and writes a picture there, as PNG.
void SavePicture(const PanelContext& context, const QString& title,
                 const std::function<QImage()>& paint);

}  // namespace ssq
