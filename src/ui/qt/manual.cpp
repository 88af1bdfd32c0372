#include "ui/qt/manual.h"

#include <QCoreApplication>
#include <filesystem>

#include "draws/Public_var.h"
#include "ui/Host.h"
#include "ui/qt/Desktop.h"
#include "ui/qt/PanelContext.h"
#include "ui/qt/Qs.h"

namespace ssq {

namespace {

constexpr const char* kFirstPage = "index";

// Empty when there is no such file.
QString Existing(const std::filesystem::path& file) {
    std::error_code unreadable;
    return std::filesystem::is_regular_file(file, unreadable) ? Qs(file.string()) : QString();
}

// The program's data may lie elsewhere than what it was installed with.
QString PageFile(const Session& session, const std::string& page) {
    const std::filesystem::path name = std::filesystem::path("manual") / (page + ".html");
    const QString file = Existing(session.programFolder / name);
    return file.isEmpty() ? Existing(QCoreApplication::applicationDirPath().toStdString() / name)
                          : file;
}

}  // namespace

void OpenManual(const PanelContext& context, const QString& page) {
    QString file = PageFile(context.session, page.toStdString());
    if (file.isEmpty()) file = PageFile(context.session, kFirstPage);
    if (file.isEmpty()) {
        context.session.host.ShowMessage("没有找到软件帮助！");
    } else {
        context.desktop.Open(file);
    }
}

void OpenHelp(const PanelContext& context) {
    const std::filesystem::path help = context.session.programFolder / "ssqhelp.chm";
    const QString manual = PageFile(context.session, kFirstPage);
    const bool takesManual = Existing(help).isEmpty() && !manual.isEmpty();
    context.desktop.Open(takesManual ? manual : Qs(help.string()));
}

}  // namespace ssq
