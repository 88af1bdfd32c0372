// Entry of the program.
#include <QStandardPaths>

#include "app/OneProgram.h"
#include "app/Program.h"
#include "ui/qt/Application.h"
#include "ui/qt/Desktop.h"
#include "ui/qt/placing.h"

namespace {

// The user's folder is such as ~/.local/share/ssq.
ssq::Folders OwnFolders() {
    const QString home = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return ssq::ChooseFolders(QApplication::applicationDirPath().toStdString(),
                              home.isEmpty() ? std::string() : home.toStdString() + "/ssq");
}

}  // namespace

int main(int argc, char** argv) {
    ssq::SystemDesktop desktop;
    ssq::Application application(argc, argv, desktop);
    const ssq::Folders folders = OwnFolders();
    ssq::OneProgram one(folders.user);
    if (!one.isFirst()) {
        if (!one.CallFirst()) {
            desktop.ShowBox(QStringLiteral("提示"), QStringLiteral("程序已经在运行！"), {});
        }
        return 0;
    }
    ssq::Program program(desktop, folders);
    application.onTerminate = [&program] { program.End(); };
    program.Start();
    if (program.session().host.stopping()) return 0;  // told so while a box of the start stood
    one.Answer([&program] { ssq::BringUp(program.mainWindow()); });
    return QApplication::exec();
}
