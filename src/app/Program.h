// The program: the host, the session and the main window, in the order they come up.
#pragma once

#include <filesystem>
#include <memory>

#include "draws/Public_var.h"
#include "ui/qt/QtHost.h"

class QWidget;

namespace ssq {

class Desktop;
class frmMain;

class Program {
  public:
    // `folder` is the program's own: it holds data/ssq.mdb and what stands beside the program.
    Program(Desktop& desktop, std::filesystem::path folder);
    ~Program();

    // The updater, the database, the newest issue, then the main window, which does not block.
    void Start();

    // Ends the program as closing the main window does, but asks nothing.
    void End();

    Session& session() { return session_; }
    QWidget& mainWindow();

  private:
    Desktop& desktop_;
    QtHost host_;
    Session session_;
    std::unique_ptr<frmMain> window_;
};

}  // namespace ssq
