// The toolkit's application object: how the program looks, and what it does when something
// unexpected reaches it.
#pragma once

#include <QApplication>
#include <functional>

namespace ssq {

class Desktop;

class Application final : public QApplication {
    Q_OBJECT

  public:
    // Sets the one style, palette and font of all panels and leaves quitting to the main window.
    // One at a time; `desktop` outlives it.
    Application(int& argc, char** argv, Desktop& desktop);
    ~Application() override;

    // Called from the event loop after the system told the program to end (SIGTERM).
    std::function<void()> onTerminate;

    // An exception that escapes from an event's handler ends there, in a box; the program goes on.
    bool notify(QObject* receiver, QEvent* event) override;

  private:
    void TellFault(const QString& what);
    void WatchTermination();

    Desktop& desktop_;
    bool tellingFault_ = false;
    int termination_[2] = {-1, -1};  // a pipe: the signal's handler writes, the event loop reads
};

}  // namespace ssq
