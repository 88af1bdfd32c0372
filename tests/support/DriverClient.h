// A script's end of panel_driver: starts it on a fresh folder and talks to it.
#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "support/TempFolder.h"
#include "support/paths.h"

class QProcess;

namespace ssq {

using Json = nlohmann::json;

// A reply, or a part of it; what it lacks reads as null.
class Reply {
  public:
    explicit Reply(Json json) : json_(std::move(json)) {}

    Json operator[](const char* field) const { return json_.value(field, Json()); }

    // The texts of the boxes that came with it.
    std::vector<std::string> Messages() const;

    // Of a grid, by cell; empty where the cell is.
    std::string Cell(int row, int col) const { return OfCell("cells", row, col); }
    std::string Back(int row, int col) const { return OfCell("back", row, col); }
    int Rows() const { return json_.value("rows", 0); }

  private:
    std::string OfCell(const char* map, int row, int col) const;

    Json json_;
};

class DriverClient {
  public:
    // Copies `database` to data/ssq.mdb of the folder; an empty path leaves the folder empty.
    explicit DriverClient(const std::filesystem::path& database = DeliveredDatabase());
    // Ends the driver by closing its input; one that does not end in time is killed, and the test
    // fails. So it does when the driver ends in any other way than cleanly.
    ~DriverClient();
    DriverClient(const DriverClient&) = delete;
    DriverClient& operator=(const DriverClient&) = delete;

    const std::filesystem::path& folder() const { return folder_.path(); }

    // The reply to one command; empty when the driver has ended. A driver that does not answer in
    // time is killed, and the test fails.
    Reply Send(const Json& command);

    // Send for a command that must succeed: the test fails when it does not.
    Reply Do(const Json& command);

    Reply Menu(const char* entry) { return Do({{"do", "menu"}, {"entry", entry}}); }
    Reply Panel(const char* name) { return Do({{"do", "panel"}, {"name", name}}); }
    Reply Close() { return Do({{"do", "close"}}); }
    Reply Click(const char* control) { return On("click", control); }
    Reply Get(const char* control) { return On("get", control); }
    Reply Grid(const char* control) { return On("grid", control); }
    Reply Set(const char* control, const std::string& value);
    Reply Choose(const char* control, int index);
    // `button` is left, right or double.
    Reply Mouse(const char* grid, int row, int col, const char* button = "left");
    Reply Popup(const char* grid, int row, int col, const char* entry);
    Reply Answer(const char* field, const std::string& value);

    std::string Text(const char* control) { return Get(control)["text"]; }
    bool Shows(const char* control) { return Get(control)["visible"]; }
    std::string Clipboard() { return Do({{"do", "clipboard"}})["text"]; }
    // The rows of a query, each an array.
    Json Sql(const std::string& text) { return Do({{"do", "sql"}, {"text", text}})["rows"]; }

    // Whether the driver has ended by itself, waiting for it.
    bool WaitForEnd();

  private:
    Reply On(const char* command, const char* control);

    TempFolder folder_;
    std::unique_ptr<QProcess> driver_;
};

}  // namespace ssq
