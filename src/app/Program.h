// The program: the host, the session and the main window, in the order they come up.
#pragma once

#include <memory>

#include "app/Folders.h"
#include "draws/Public_var.h"
#include "ui/qt/QtHost.h"

class QWidget;

namespace ssq {

class Desktop;
class frmMain;

class Program {
  public:
    Program(Desktop& desktop, const Folders& folders);
    ~Program();

    // The updater, the database, which the first start lays down, the newest issue, then the main
    // window, which does not block.
    void Start();

    // Ends the program as closing the main window does, but asks nothing.
    void End();

    Session& session() { return session_; }
    QWidget& mainWindow();

  private:
    Desktop& desktop_;
    Folders folders_;
    QtHost host_;
    Session session_;
    std::unique_ptr<frmMain> window_;
};

}  // namespace ssq
