// Entry of the program.
#include "app/Application.h"
#include "app/OneProgram.h"
#include "app/Program.h"
#include "ui/qt/Desktop.h"
#include "ui/qt/form.h"
#include "ui/qt/look.h"

int main(int argc, char** argv) {
    ssq::Application application(argc, argv);
    ssq::ApplyLook(application);
    ssq::SystemDesktop desktop;
    application.onFault = [&desktop](const QString& text) {
        desktop.ShowBox(QStringLiteral("提示"), text);
    };
    const std::string folder = QApplication::applicationDirPath().toStdString();
    ssq::OneProgram one(folder);
    if (!one.isFirst()) {
        if (!one.CallFirst()) {
            desktop.ShowBox(QStringLiteral("提示"), QStringLiteral("程序已经在运行！"));
        }
        return 0;
    }
    ssq::Program program(desktop, folder);
    program.Start();
    one.Answer([&program] { ssq::BringUp(program.mainWindow()); });
    return QApplication::exec();
}
