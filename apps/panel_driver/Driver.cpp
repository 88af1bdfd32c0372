#include "Driver.h"

#include <unistd.h>

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <algorithm>
#include <array>
#include <cstdio>
#include <exception>
#include <utility>

#include "ScriptDesktop.h"
#include "app/Program.h"
#include "ui/Host.h"

namespace ssq {

namespace {

// Lays out and paints what the last command changed.
void Settle() {
    QApplication::processEvents();
}

}  // namespace

Driver::Driver(Program& program, ScriptDesktop& desktop)
    : program_(program),
      desktop_(desktop),
      stage_{program, desktop, panels_},
      input_(STDIN_FILENO, QSocketNotifier::Read) {
    input_.setEnabled(false);
    for (QTimer* timer : {&next_, &look_}) {
        timer->setSingleShot(true);
        timer->setInterval(0);
    }
    connect(&next_, &QTimer::timeout, this, [this] { Run(); });
    connect(&look_, &QTimer::timeout, this, [this] { ReplyIfDue(); });
    panels_.onModalShown = [this] { look_.start(); };
    connect(&input_, &QSocketNotifier::activated, this, [this] { ReadInput(); });
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, this,
            [this] { NoteTurn(); });
}

void Driver::Start() {
    input_.setEnabled(true);
}

void Driver::Finish() {
    if (due_) Reply();
}

void Driver::ReadInput() {
    std::array<char, 65536> buffer{};
    const ssize_t size = read(STDIN_FILENO, buffer.data(), buffer.size());
    if (size > 0) {
        unread_.append(buffer.data(), size);
    } else {
        inputEnded_ = true;
        input_.setEnabled(false);
        if (!unread_.isEmpty()) unread_.append('\n');
    }
    qsizetype end = 0;
    while ((end = unread_.indexOf('\n')) >= 0) {
        lines_.push_back(unread_.left(end));
        unread_.remove(0, end + 1);
    }
    RunNext();
}

void Driver::RunNext() {
    if (due_ || next_.isActive()) return;
    if (!lines_.empty()) {
        next_.start();
    } else if (inputEnded_) {
        Leave();
    }
}

void Driver::Run() {
    const QByteArray line = lines_.front();
    lines_.pop_front();
    const auto reply = std::make_shared<Json>();
    due_ = reply;
    ++running_;
    Settle();
    stood_ = 0;
    sinceTurn_.start();
    *reply = CarryLine(line);
    NoteTurn();
    Settle();
    NoteTurn();
    --running_;
    if (!quitAsked_) return look_.start();
    if (due_ == reply) Reply();  // not those that quitting unwinds
    Leave();
}

Json Driver::CarryLine(const QByteArray& line) {
    const Json command = Json::parse(line.begin(), line.end(), nullptr, false);
    if (!command.is_object()) return {{"error", "the line is no JSON object"}};
    if (command.value("do", Json()) == "during") return TakeInterruption(command);
    const Json interruption = std::exchange(interruption_, nullptr);
    return interruption.is_null() ? Carry(command) : CarryInterrupted(command, interruption);
}

Json Driver::TakeInterruption(const Json& during) {
    const Json after = during.value("after", Json(0));
    if (!during.value("command", Json()).is_object() || !after.is_number_integer() || after < 0) {
        return {{"error", "during takes a command, and a number of milliseconds as 'after'"}};
    }
    interruption_ = during;
    return {};
}

Json Driver::CarryInterrupted(const Json& command, const Json& interruption) {
    Json played = {{"error", "the command ended before"}};
    QTimer timer;
    timer.setSingleShot(true);
    connect(&timer, &QTimer::timeout, this, [&] {
        played = Carry(interruption["command"]);
        if (quitAsked_) Leave();
    });
    timer.start(interruption.value("after", 0));
    // A run of some ms may end before it hands control over.
    program_.session().host.OwePump();
    Json reply = Carry(command);
    timer.stop();
    played["ok"] = !played.contains("error");
    reply["during"] = played;
    return reply;
}

Json Driver::Carry(const Json& command) {
    try {
        quitAsked_ = command.value("do", "") == "quit";
        return quitAsked_ ? Json() : RunCommand(stage_, command);
    } catch (const std::exception& fault) {
        return {{"error", fault.what()}};
    }
}

void Driver::ReplyIfDue() {
    if (!due_ || running_ > Panels::ModalCount()) return;
    Reply();
    RunNext();
}

void Driver::Reply() {
    Json reply = *due_;
    due_.reset();
    const QWidget* panel = panels_.Addressed();
    const QWidget* modal = Panels::Modal();
    reply["ok"] = !reply.contains("error");
    reply["stood"] = stood_;
    reply["messages"] = desktop_.TakeMessages();
    reply["panel"] = panel ? Json(Panels::Name(*panel)) : Json();
    reply["modal"] = modal ? Json(Panels::Name(*modal)) : Json();
    const Json opened = desktop_.TakeOpened();
    if (!opened.empty()) reply["opened"] = opened;
    // What the store holds may be no UTF-8.
    const std::string text = reply.dump(-1, ' ', false, Json::error_handler_t::replace) + '\n';
    std::fwrite(text.data(), 1, text.size(), stdout);
    std::fflush(stdout);
}

void Driver::NoteTurn() {
    stood_ = std::max<std::int64_t>(stood_, sinceTurn_.restart());
}

// Not by closing the windows, which would ask the user.
void Driver::Leave() {
    input_.setEnabled(false);
    program_.session().host.Stop();
    QCoreApplication::exit();
}

}  // namespace ssq
