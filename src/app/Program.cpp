#include "app/Program.h"

#include <QCoreApplication>

#include "app/MDL_UPDATE.h"
#include "app/frmMain.h"
#include "draws/public_fun.h"
#include "draws/queries.h"

namespace ssq {

Program::Program(Desktop& desktop, const Folders& folders)
    : desktop_(desktop), folders_(folders), host_(desktop), session_(host_, folders.program) {
    session_.userFolder = folders.user;
}

Program::~Program() = default;

void Program::Start() {
    LaunchUpdater(session_, desktop_, false);
    session_.isStarting = true;
    std::string errorText;
    if (!LayDelivered(folders_, errorText)) session_.host.ShowMessage(errorText);
    OpenDatabase(session_);
    RefreshLatestIssue(session_);
    window_ = std::make_unique<frmMain>(PanelContext{session_, desktop_});
    window_->show();
    session_.isStarting = false;
}

void Program::End() {
    host_.Stop();
    if (window_) window_->close();
    // quit() would ask every window first, and a dialog may refuse to close.
    QCoreApplication::exit(0);
}

QWidget& Program::mainWindow() {
    return *window_;
}

}  // namespace ssq
