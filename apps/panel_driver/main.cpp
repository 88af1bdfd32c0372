// panel_driver FOLDER: the real program on the given folder, driven by one JSON object per line.
#include <cstdio>
#include <exception>

#include "Driver.h"
#include "ScriptDesktop.h"
#include "app/OneProgram.h"
#include "app/Program.h"
#include "ui/qt/Application.h"

namespace {

// The offscreen platform complains of every window that it neither sizes nor raises.
void Print(QtMsgType, const QMessageLogContext&, const QString& text) {
    if (text.startsWith(u"This plugin does not support")) return;
    std::fprintf(stderr, "%s\n", qUtf8Printable(text));
}

}  // namespace

int main(int argc, char** argv) try {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(Print);
    ssq::ScriptDesktop desktop;
    ssq::Application application(argc, argv, desktop);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 2) {
        std::fputs("usage: panel_driver FOLDER\n", stderr);
        return 2;
    }
    const std::string folder = arguments[1].toStdString();
    const ssq::OneProgram one(folder);
    if (!one.isFirst()) {
        std::fputs("panel_driver: a program is running on this folder already\n", stderr);
        return 1;
    }
    ssq::Program program(desktop, {folder, folder});
    application.onTerminate = [&program] { program.End(); };
    ssq::Driver driver(program, desktop);
    program.Start();
    driver.Start();
    const int code = QApplication::exec();
    driver.Finish();
    return code;
} catch (const std::exception& fault) {
    std::fprintf(stderr, "panel_driver: %s\n", fault.what());
    return 1;
}
