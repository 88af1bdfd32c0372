// Entry of the program.
#include "app/OneProgram.h"
#include "app/Program.h"
#include "ui/qt/Application.h"
#include "ui/qt/Desktop.h"
#include "ui/qt/placing.h"

int main(int argc, char** argv) {
    ssq::SystemDesktop desktop;
    ssq::Application application(argc, argv, desktop);
    const std::string folder = QApplication::applicationDirPath().toStdString();
    ssq::OneProgram one(folder);
    if (!one.isFirst()) {
        if (!one.CallFirst()) {
            desktop.ShowBox(QStringLiteral("提示"), QStringLiteral("程序已经在运行！"), {});
        }
        return 0;
    }
    ssq::Program program(desktop, folder);
    application.onTerminate = [&program] { program.End(); };
    program.Start();
    one.Answer([&program] { ssq::BringUp(program.mainWindow()); });
    return QApplication::exec();
}
