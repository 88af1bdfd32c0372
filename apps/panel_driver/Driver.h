// The flow of a script: commands in from standard input, strictly one after the other, replies
// out to standard output.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QSocketNotifier>
#include <QTimer>
#include <cstdint>
#include <deque>
#include <memory>

#include "Commands.h"
#include "Panels.h"

namespace ssq {

class Program;
class ScriptDesktop;

// A command runs from the event loop. One that opens a modal window stays on the stack until that
// window is closed by later commands, which run in the window's own event loop. So a command has
// come to rest, and its reply is due, when the commands on the stack are no more than the modal
// windows they wait for. The next line is read only then. `during` is the exception: the command it
// holds runs while the next one hands control to the event loop, and both share one reply.
class Driver final : public QObject {
  public:
    Driver(Program& program, ScriptDesktop& desktop);

    // Begins with the commands; the event loop must run from then on. It is left after `quit` or
    // the end of the input.
    void Start();

    // Sends what is owed after the event loop was left.
    void Finish();

  private:
    void ReadInput();
    void RunNext();
    void Run();
    Json CarryLine(const QByteArray& line);
    Json TakeInterruption(const Json& during);
    Json CarryInterrupted(const Json& command, const Json& interruption);
    Json Carry(const Json& command);
    void ReplyIfDue();
    void Reply();
    void Leave();
    void NoteTurn();

    Program& program_;
    ScriptDesktop& desktop_;
    Panels panels_;
    Stage stage_;
    QSocketNotifier input_;
    QTimer next_;                   // runs the next command from the event loop
    QTimer look_;                   // looks whether the reply is due, once the windows are laid out
    Json interruption_;             // the `during` that waits for the next command, or null
    QByteArray unread_;             // the beginning of a line
    std::deque<QByteArray> lines_;  // read and not yet run
    bool inputEnded_ = false;
    bool quitAsked_ = false;
    int running_ = 0;          // commands on the stack
    QElapsedTimer sinceTurn_;  // of the event loop
    std::int64_t stood_ = 0;   // ms, the longest the loop waited for its turn since the last reply
    std::shared_ptr<Json> due_;  // reply to the command under way
};

}  // namespace ssq
