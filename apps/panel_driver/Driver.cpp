#include "Driver.h"

#include <unistd.h>

#include <QApplication>
#include <QJsonDocument>
#include <array>
#include <cstdio>

#include "Refusal.h"
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
      commands_(program, desktop, panels_),
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
    const auto reply = std::make_shared<QJsonObject>();
    due_ = reply;
    ++running_;
    Settle();
    *reply = Carry(line);
    Settle();
    --running_;
    if (!quitAsked_) return look_.start();
    if (due_ == reply) Reply();  // not those that quitting unwinds
    Leave();
}

QJsonObject Driver::Carry(const QByteArray& line) {
    try {
        const QJsonDocument document = QJsonDocument::fromJson(line);
        if (!document.isObject()) throw Refusal(u"the line is no JSON object"_qs);
        const QJsonObject command = document.object();
        quitAsked_ = command.value(u"do").toString() == u"quit";
        return quitAsked_ ? QJsonObject() : commands_.Run(command);
    } catch (const std::exception& fault) {
        return {{u"error"_qs, QString::fromUtf8(fault.what())}};
    }
}

void Driver::ReplyIfDue() {
    if (!due_ || running_ > Panels::ModalCount()) return;
    Reply();
    RunNext();
}

void Driver::Reply() {
    QJsonObject reply = *due_;
    due_.reset();
    const QWidget* panel = panels_.Addressed();
    const QWidget* modal = Panels::Modal();
    reply[u"ok"] = !reply.contains(u"error");
    reply[u"messages"] = desktop_.TakeMessages();
    reply[u"panel"] = panel ? Panels::Name(*panel) : QJsonValue();
    reply[u"modal"] = modal ? Panels::Name(*modal) : QJsonValue();
    const QJsonArray opened = desktop_.TakeOpened();
    if (!opened.isEmpty()) reply[u"opened"] = opened;
    const QByteArray text = QJsonDocument(reply).toJson(QJsonDocument::Compact) + '\n';
    std::fwrite(text.constData(), 1, static_cast<std::size_t>(text.size()), stdout);
    std::fflush(stdout);
}

// Not by closing the windows, which would ask the user.
void Driver::Leave() {
    input_.setEnabled(false);
    program_.session().host.Stop();
    QCoreApplication::exit();
}

}  // namespace ssq
