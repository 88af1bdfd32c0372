// What the panels ask of the desktop around the program: boxes, file dialogs, links, popup menus.
// One small interface, so that the test driver can answer in the user's place.
#pragma once

#include <QString>
#include <QStringList>

class QMenu;
class QPoint;
class QPrinter;

namespace ssq {

class Desktop {
  public:
    Desktop() = default;
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;
    virtual ~Desktop() = default;

    // A modal box with the information icon and OK; long texts fold into details. `note` stands
    // under the text in smaller print, nothing when it is empty.
    virtual void ShowBox(const QString& title, const QString& text, const QString& note) = 0;

    // A modal box with OK and Cancel; true for OK.
    virtual bool Confirm(const QString& title, const QString& text) = 0;

    // The chosen file, empty when the user cancels. `pattern` is such as "*.xls"; an empty folder
    // is the one used last. Whether a file that exists may be replaced is asked by the caller, who
    // may still add an ending. `proposed` is a name to begin with.
    virtual QString AskSaveFile(const QString& pattern, const QString& proposed) = 0;
    virtual QString AskOpenFile(const QString& title, const QString& folder,
                                const QString& pattern) = 0;

    // Opens a link or a document with the system's own program.
    virtual void Open(const QString& urlOrFile) = 0;

    // Starts a program without waiting for it; `arguments` is one text, as it goes to the system.
    virtual void StartProgram(const QString& file, const QString& arguments) = 0;

    // Lets the user choose a printer and its settings; false when the user cancels.
    virtual bool AskPrinter(QPrinter& printer) = 0;

    // Shows the menu at a place of the screen and returns when it is closed.
    virtual void RaisePopup(QMenu& menu, const QPoint& place) = 0;
};

// The desktop of a running session.
class SystemDesktop final : public Desktop {
  public:
    void ShowBox(const QString& title, const QString& text, const QString& note) override;
    bool Confirm(const QString& title, const QString& text) override;
    QString AskSaveFile(const QString& pattern, const QString& proposed) override;
    QString AskOpenFile(const QString& title, const QString& folder,
                        const QString& pattern) override;
    void Open(const QString& urlOrFile) override;
    void StartProgram(const QString& file, const QString& arguments) override;
    bool AskPrinter(QPrinter& printer) override;
    void RaisePopup(QMenu& menu, const QPoint& place) override;

  private:
    QString lastFolder_;  // that a file was saved in
};

}  // namespace ssq
