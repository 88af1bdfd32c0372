#include "ui/qt/Application.h"

#include <fcntl.h>
#include <unistd.h>

#include <QFont>
#include <QPalette>
#include <QSocketNotifier>
#include <QStyleFactory>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <exception>
#include <new>

#include "ui/qt/Desktop.h"

namespace ssq {

namespace {

constexpr int kTextPoints = 10;

QPalette LightPalette() {
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(0xF4, 0xF6, 0xF6));
    palette.setColor(QPalette::WindowText, QColor(0x22, 0x2B, 0x2D));
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::AlternateBase, QColor(0xEC, 0xF1, 0xF1));
    palette.setColor(QPalette::Text, QColor(0x22, 0x2B, 0x2D));
    palette.setColor(QPalette::Button, QColor(0xE9, 0xEE, 0xEE));
    palette.setColor(QPalette::ButtonText, QColor(0x22, 0x2B, 0x2D));
    palette.setColor(QPalette::Highlight, QColor(0x2F, 0x7D, 0x8C));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

QFont TextFont() {
    QFont font = QApplication::font();
    font.setFamilies({QStringLiteral("Microsoft YaHei"), QStringLiteral("PingFang SC"),
                      QStringLiteral("Noto Sans CJK SC"), QStringLiteral("WenQuanYi Micro Hei")});
    font.setPointSize(kTextPoints);
    return font;
}

// A handler of signals gets no argument of ours, so this one thing stands outside all objects.
std::atomic<int> terminationWriter = -1;

void OnTerminationSignal(int) {
    const int saved = errno;
    static_cast<void>(!::write(terminationWriter, "", 1));
    errno = saved;
}

}  // namespace

Application::Application(int& argc, char** argv, Desktop& desktop)
    : QApplication(argc, argv), desktop_(desktop) {
    setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    setPalette(LightPalette());
    setFont(TextFont());
    setQuitOnLastWindowClosed(false);
    WatchTermination();
}

Application::~Application() {
    if (terminationWriter < 0) return;
    std::signal(SIGTERM, SIG_DFL);
    terminationWriter = -1;
    for (const int end : termination_) ::close(end);
}

void Application::WatchTermination() {
    if (::pipe2(termination_, O_CLOEXEC | O_NONBLOCK) != 0) return;
    auto* notifier = new QSocketNotifier(termination_[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this, notifier] {
        notifier->setEnabled(false);
        if (onTerminate) onTerminate();
    });
    terminationWriter = termination_[1];
    std::signal(SIGTERM, OnTerminationSignal);
}

bool Application::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::bad_alloc&) {
        TellFault(QStringLiteral("内存不足。"));
    } catch (const std::exception& fault) {
        TellFault(QString::fromUtf8(fault.what()));
    } catch (...) {
        TellFault({});
    }
    return false;
}

// A fault while the box stands, such as in a repaint behind it, raises no second one.
void Application::TellFault(const QString& what) {
    if (tellingFault_) return;
    tellingFault_ = true;
    desktop_.ShowBox(QStringLiteral("提示"), QStringLiteral("程序出错，这一步没有做完。"), what);
    tellingFault_ = false;
}

}  // namespace ssq
