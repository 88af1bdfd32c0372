#include "ui/qt/Application.h"

#include <fcntl.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <exception>
#include <new>

#include "ui/qt/Desktop.h"
#include "ui/qt/look.h"

namespace ssq {

namespace {

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
    SetLook(*this);
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
