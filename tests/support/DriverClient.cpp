#include "support/DriverClient.h"

#include <gtest/gtest.h>

#include <QDeadlineTimer>
#include <QProcess>

namespace ssq {

namespace {

constexpr int kReplyLimit = 60'000;  // ms

}  // namespace

std::vector<std::string> Reply::Messages() const {
    std::vector<std::string> texts;
    for (const Json& box : (*this)["messages"]) texts.push_back(box["text"]);
    return texts;
}

std::string Reply::OfCell(const char* map, int row, int col) const {
    return (*this)[map].value(std::to_string(row) + "," + std::to_string(col), "");
}

DriverClient::DriverClient(const std::filesystem::path& database)
    : driver_(std::make_unique<QProcess>()) {
    if (!database.empty()) {
        std::filesystem::create_directory(folder() / "data");
        std::filesystem::copy_file(database, folder() / "data" / "ssq.mdb");
    }
    driver_->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    driver_->start(QString::fromStdString(PanelDriver()), {QString::fromStdString(folder())});
    if (!driver_->waitForStarted()) ADD_FAILURE() << "panel_driver does not start";
}

DriverClient::~DriverClient() {
    driver_->closeWriteChannel();
    if (!WaitForEnd()) {
        ADD_FAILURE() << "panel_driver does not end with its input";
        driver_->kill();
        driver_->waitForFinished();
    } else if (driver_->exitStatus() != QProcess::NormalExit || driver_->exitCode() != 0) {
        ADD_FAILURE() << "panel_driver ended with code " << driver_->exitCode();
    }
}

Reply DriverClient::Send(const Json& command) {
    driver_->write(QByteArray::fromStdString(command.dump() + '\n'));
    const QDeadlineTimer deadline(kReplyLimit);
    while (!driver_->canReadLine() && driver_->state() != QProcess::NotRunning) {
        if (driver_->waitForReadyRead(static_cast<int>(deadline.remainingTime()))) continue;
        if (driver_->state() == QProcess::NotRunning) break;
        ADD_FAILURE() << "panel_driver gives no reply to " << command;
        driver_->kill();
        driver_->waitForFinished();
    }
    const Json reply = Json::parse(driver_->readLine().toStdString(), nullptr, false);
    return Reply(reply.is_object() ? reply : Json::object());
}

Reply DriverClient::Do(const Json& command) {
    Reply reply = Send(command);
    EXPECT_TRUE(reply["ok"] == true) << command << ": " << reply["error"];
    return reply;
}

Reply DriverClient::Set(const char* control, const std::string& value) {
    return Do({{"do", "set"}, {"control", control}, {"value", value}});
}

Reply DriverClient::Choose(const char* control, int index) {
    return Do({{"do", "choose"}, {"control", control}, {"index", index}});
}

Reply DriverClient::Mouse(const char* grid, int row, int col, const char* button) {
    return Do({{"do", "mouse"}, {"control", grid}, {"row", row}, {"col", col}, {"button", button}});
}

Reply DriverClient::Popup(const char* grid, int row, int col, const char* entry) {
    return Do({{"do", "popup"}, {"control", grid}, {"row", row}, {"col", col}, {"entry", entry}});
}

Reply DriverClient::Answer(const char* field, const std::string& value) {
    return Do({{"do", "answer"}, {field, value}});
}

Reply DriverClient::On(const char* command, const char* control) {
    return Do({{"do", command}, {"control", control}});
}

bool DriverClient::WaitForEnd() {
    return driver_->state() == QProcess::NotRunning || driver_->waitForFinished(kReplyLimit) ||
           driver_->state() == QProcess::NotRunning;
}

}  // namespace ssq
