// Entry of the program.
#include <QApplication>

#include "app/Program.h"
#include "ui/qt/Desktop.h"
#include "ui/qt/look.h"

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    ssq::ApplyLook(application);
    ssq::SystemDesktop desktop;
    ssq::Program program(desktop, QApplication::applicationDirPath().toStdString());
    program.Start();
    return QApplication::exec();
}
