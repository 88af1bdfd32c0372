// A script's end of panel_driver: starts it on a fresh folder and talks to it.
#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

namespace ssq {

class DriverClient {
  public:
    // Copies `database` to data/ssq.mdb of the folder; an empty path leaves the folder empty.
    explicit DriverClient(const std::filesystem::path& database);
    // Ends the driver by closing its input; one that does not end in time is killed, and the test
    // fails. So it does when the driver ends in any other way than cleanly.
    ~DriverClient();
    DriverClient(const DriverClient&) = delete;
    DriverClient& operator=(const DriverClient&) = delete;

    std::filesystem::path folder() const { return folder_.path().toStdString(); }

    // The reply to one command; empty when the driver has ended. A driver that does not answer
    // within the limit is killed, and the test fails.
    QJsonObject Send(const QJsonObject& command, std::chrono::seconds limit = kReplyLimit);
    QJsonObject SendLine(const QByteArray& line, std::chrono::seconds limit = kReplyLimit);

    // Send for a command that must succeed: the test fails when it does not.
    QJsonObject Do(const QJsonObject& command, std::chrono::seconds limit = kReplyLimit);

    QJsonObject Menu(const char* entry);
    QJsonObject Panel(const char* name);
    QJsonObject Click(const char* control);
    QJsonObject Set(const char* control, const QString& value);
    QJsonObject Choose(const char* control, int index);
    std::string Text(const char* control);
    QJsonObject Grid(const char* control);

    // A grid's reply read by cell; empty where the cell is.
    static std::string Cell(const QJsonObject& grid, int row, int col);
    static std::string Back(const QJsonObject& grid, int row, int col);
    // The texts of the boxes that came with a reply.
    static std::vector<std::string> Messages(const QJsonObject& reply);

    // Whether the driver has ended by itself, waiting for it up to the limit.
    bool WaitForEnd(std::chrono::seconds limit = kReplyLimit);

  private:
    static constexpr std::chrono::seconds kReplyLimit{60};

    bool WaitForLine(std::chrono::seconds limit);

    QTemporaryDir folder_;
    QProcess driver_;
};

}  // namespace ssq
