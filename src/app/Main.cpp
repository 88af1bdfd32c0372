// Entry of the program.
#include "app/Program.h"
#include "ui/qt/Application.h"
#include "ui/qt/Desktop.h"

int main(int argc, char** argv) {
    ssq::SystemDesktop desktop;
    ssq::Application application(argc, argv, desktop);
    ssq::Program program(desktop, QApplication::applicationDirPath().toStdString());
    application.onTerminate = [&program] { program.End(); };
    program.Start();
    return QApplication::exec();
}
