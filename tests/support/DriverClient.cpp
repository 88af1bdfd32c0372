#include "support/DriverClient.h"

#include <gtest/gtest.h>

#include <QDeadlineTimer>
#include <QJsonDocument>

namespace ssq {

namespace {

int Milliseconds(std::chrono::seconds limit) {
    return static_cast<int>(std::chrono::milliseconds(limit).count());
}

std::string OfCell(const QJsonObject& grid, const QString& what, int row, int col) {
    const QString key = QStringLiteral("%1,%2").arg(row).arg(col);
    return grid.value(what).toObject().value(key).toString().toStdString();
}

}  // namespace

DriverClient::DriverClient(const std::filesystem::path& database) {
    if (!database.empty()) {
        std::filesystem::create_directory(folder() / "data");
        std::filesystem::copy_file(database, folder() / "data" / "ssq.mdb");
    }
    driver_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    driver_.start(QStringLiteral(SSQ_PANEL_DRIVER), {folder_.path()});
    if (!driver_.waitForStarted()) ADD_FAILURE() << "panel_driver does not start";
}

DriverClient::~DriverClient() {
    driver_.closeWriteChannel();
    if (!WaitForEnd()) {
        ADD_FAILURE() << "panel_driver does not end with its input";
        driver_.kill();
        driver_.waitForFinished();
    } else if (driver_.exitStatus() != QProcess::NormalExit || driver_.exitCode() != 0) {
        ADD_FAILURE() << "panel_driver ended with code " << driver_.exitCode();
    }
}

QJsonObject DriverClient::Send(const QJsonObject& command, std::chrono::seconds limit) {
    return SendLine(QJsonDocument(command).toJson(QJsonDocument::Compact), limit);
}

QJsonObject DriverClient::SendLine(const QByteArray& line, std::chrono::seconds limit) {
    driver_.write(line + '\n');
    if (!WaitForLine(limit)) return {};
    return QJsonDocument::fromJson(driver_.readLine()).object();
}

bool DriverClient::WaitForLine(std::chrono::seconds limit) {
    const QDeadlineTimer deadline(limit);
    while (!driver_.canReadLine()) {
        const int left = static_cast<int>(deadline.remainingTime());
        if (driver_.waitForReadyRead(left)) continue;
        if (driver_.state() == QProcess::NotRunning) return driver_.canReadLine();
        ADD_FAILURE() << "panel_driver gives no reply";
        driver_.kill();
        driver_.waitForFinished();
        return false;
    }
    return true;
}

QJsonObject DriverClient::Do(const QJsonObject& command, std::chrono::seconds limit) {
    QJsonObject reply = Send(command, limit);
    EXPECT_TRUE(reply[u"ok"].toBool())
        << QJsonDocument(command).toJson(QJsonDocument::Compact).toStdString() << ": "
        << reply[u"error"].toString().toStdString();
    return reply;
}

QJsonObject DriverClient::Menu(const char* entry) {
    return Do({{"do", "menu"}, {"entry", entry}});
}

QJsonObject DriverClient::Panel(const char* name) {
    return Do({{"do", "panel"}, {"name", name}});
}

QJsonObject DriverClient::Click(const char* control) {
    return Do({{"do", "click"}, {"control", control}});
}

QJsonObject DriverClient::Set(const char* control, const QString& value) {
    return Do({{"do", "set"}, {"control", control}, {"value", value}});
}

QJsonObject DriverClient::Choose(const char* control, int index) {
    return Do({{"do", "choose"}, {"control", control}, {"index", index}});
}

std::string DriverClient::Text(const char* control) {
    return Do({{"do", "get"}, {"control", control}})[u"text"].toString().toStdString();
}

QJsonObject DriverClient::Grid(const char* control) {
    return Do({{"do", "grid"}, {"control", control}});
}

std::string DriverClient::Cell(const QJsonObject& grid, int row, int col) {
    return OfCell(grid, "cells", row, col);
}

std::string DriverClient::Back(const QJsonObject& grid, int row, int col) {
    return OfCell(grid, "back", row, col);
}

std::vector<std::string> DriverClient::Messages(const QJsonObject& reply) {
    std::vector<std::string> texts;
    const QJsonArray messages = reply[u"messages"].toArray();
    for (const auto& message : messages) {
        texts.push_back(message.toObject()[u"text"].toString().toStdString());
    }
    return texts;
}

bool DriverClient::WaitForEnd(std::chrono::seconds limit) {
    return driver_.state() == QProcess::NotRunning ||
           driver_.waitForFinished(Milliseconds(limit)) || driver_.state() == QProcess::NotRunning;
}

}  // namespace ssq
