// panel_driver FOLDER: the real program on the given folder, driven by one JSON object per line.
#include <QTemporaryFile>
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

// Without a display of its own the program runs on an offscreen one of a usual size; that of the
// platform, 800 by 800, is smaller than any the windows are made for.
void ChooseScreen(QTemporaryFile& screen) {
    const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
    if (!platform.isEmpty() && platform != "offscreen") return;
    screen.open();
    screen.write(R"({"screens": [{"name": "offscreen", "width": 1920, "height": 1080}]})");
    screen.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screen.fileName().toUtf8());
}

}  // namespace

int main(int argc, char** argv) try {
    QTemporaryFile screen;
    ChooseScreen(screen);
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
