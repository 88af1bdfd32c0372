#include "Commands.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QWidget>
#include <algorithm>
#include <initializer_list>
#include <map>
#include <stdexcept>

#include "Controls.h"
#include "Grids.h"
#include "Panels.h"
#include "ScriptDesktop.h"
#include "app/Program.h"
#include "ui/qt/GridView.h"

namespace ssq {

namespace {

using Refusal = std::runtime_error;

// One command on its way: its fields, what it works on, and its part of the reply.
struct Call {
    Stage& stage;
    const Json& command;
    Json reply = {};

    const Json& operator[](const char* field) const { return command[field]; }
    Session& session() const { return stage.program.session(); }

    QWidget& panel() const {
        if (QWidget* panel = stage.panels.Addressed()) return *panel;
        throw Refusal("no panel is open");
    }
    // The control as it is, and as a user can use it.
    QWidget& control() const { return FindControl(panel(), command["control"]); }
    QWidget& usable() const { return FindUsableControl(panel(), command["control"]); }
};

void Menu(Call& call) {
    if (const QWidget* modal = Panels::Modal()) {
        throw Refusal("the modal window " + Panels::Name(*modal) + " is in front of the menu");
    }
    QWidget& window = call.stage.program.mainWindow();
    const auto* bar = window.findChild<QMenuBar*>();
    if (!bar || !window.isVisible()) throw Refusal("the main window's menu is not open");
    UsableEntry(bar->actions(), call["entry"]).trigger();
}

void AddressPanel(Call& call) {
    if (call.stage.panels.Address(call["name"])) return;
    throw Refusal("no panel '" + call["name"].get<std::string>() + "' is open");
}

void Get(Call& call) {
    const auto* bar = call.panel().findChild<QMenuBar*>(QString(), Qt::FindDirectChildrenOnly);
    const QAction* entry = bar ? FindEntry(bar->actions(), call["control"]) : nullptr;
    if (!entry) {
        call.reply = DescribeControl(call.control());
        return;
    }
    call.reply = {
        {"text", entry->text()}, {"enabled", entry->isEnabled()}, {"visible", entry->isVisible()}};
}

// The analysis' rows; where the user has sorted what he sees, also their order on screen.
void Grid(Call& call) {
    const GridView& view = AsGrid(call.control());
    call.reply = DescribeGrid(view.grid());
    if (!view.sortedCol()) return;
    std::vector<int> order(static_cast<std::size_t>(view.grid().rows()));
    for (int row = 0; row < view.grid().rows(); ++row) {
        order[static_cast<std::size_t>(view.IndexOf(row, 0).row())] = row;
    }
    call.reply["sortedCol"] = *view.sortedCol();
    call.reply["order"] = order;
}

void Select(Call& call) {
    SelectCells(AsGrid(call.usable()), call["row"], call["col"], call["rowSel"], call["colSel"]);
}

void Mouse(Call& call) {
    static const std::map<std::string, Press> kPresses = {
        {"left", Press::kLeft}, {"right", Press::kRight}, {"double", Press::kDouble}};
    const auto press = kPresses.find(call["button"]);
    if (press == kPresses.end()) throw Refusal("button must be left, right or double");
    PressCell(AsGrid(call.usable()), call["row"], call["col"], press->second);
}

void Popup(Call& call) {
    QWidget& control = call.usable();
    const auto* button = qobject_cast<QPushButton*>(&control);
    if (button && button->menu()) {
        return UsableEntry(button->menu()->actions(), call["entry"]).trigger();
    }
    call.stage.desktop.ChooseInPopup(call["entry"]);
    if (qobject_cast<QAbstractButton*>(&control)) {
        ClickControl(control);
    } else {
        if (!call.command.contains("row") || !call.command.contains("col")) {
            throw Refusal("a grid's popup needs the fields row and col");
        }
        PressCell(AsGrid(control), call["row"], call["col"], Press::kRight);
    }
    const std::string fault = call.stage.desktop.EndPopup();
    if (!fault.empty()) throw Refusal(fault);
}

void Answer(Call& call) {
    static const std::map<std::string, bool> kButtons = {
        {"OK", true}, {"确定", true}, {"Cancel", false}, {"取消", false}};
    ScriptDesktop& desktop = call.stage.desktop;
    if (call.command.contains("file")) return desktop.AnswerFileDialog(call["file"]);
    const auto button = kButtons.find(call.command.value("button", ""));
    if (button == kButtons.end()) throw Refusal("button must be OK, Cancel, 确定 or 取消");
    desktop.AnswerQuestion(button->second);
}

void Close(Call& call) {
    QWidget& panel = call.panel();
    if (!(panel.windowFlags() & Qt::WindowCloseButtonHint)) {
        throw Refusal(Panels::Name(panel) + " has no close button");
    }
    panel.close();
}

Json ToJson(const Value& value) {
    if (const auto* number = std::get_if<std::int64_t>(&value)) return *number;
    if (const auto* number = std::get_if<double>(&value)) return *number;
    if (const auto* text = std::get_if<std::string>(&value)) return *text;
    return nullptr;
}

void Sql(Call& call) {
    std::string errorText;
    Recordset records;
    if (!call.session().connection.OpenQuery(call["text"].get<std::string>(), errorText, records)) {
        throw Refusal(errorText);
    }
    Json& fields = call.reply["fields"] = Json::array();
    Json& rows = call.reply["rows"] = Json::array();
    for (int i = 0; i < records.FieldCount(); ++i) fields.push_back(records.FieldName(i));
    for (; !records.eof(); records.MoveNext()) {
        Json& row = rows.emplace_back(Json::array());
        for (int i = 0; i < records.FieldCount(); ++i) row.push_back(ToJson(records.Field(i)));
    }
}

void Site(Call& call) {
    std::string url = call["url"];
    if (url.ends_with('/')) url.pop_back();
    Deployment& hosts = call.session().deployment;
    hosts.resultsHost = hosts.orderHost = hosts.salesHost = hosts.partnerHost = url;
}

void Screenshot(Call& call) {
    const QString file = call["file"];
    if (!QDir().mkpath(QFileInfo(file).absolutePath()) || !call.panel().grab().save(file, "PNG")) {
        throw Refusal("cannot write " + file.toStdString());
    }
}

using Fields = std::initializer_list<const char*>;

struct Command {
    const char* name;
    Fields texts;    // fields that it must have
    Fields numbers;  // the same, whole numbers
    void (*run)(Call& call);
};

// clang-format off
const Command kCommands[] = {
    {"menu", {"entry"}, {}, Menu},
    {"panel", {"name"}, {}, AddressPanel},
    {"set", {"control", "value"}, {}, [](Call& c) { SetControl(c.usable(), c["value"]); }},
    {"choose", {"control"}, {"index"}, [](Call& c) { ChooseInControl(c.usable(), c["index"]); }},
    {"click", {"control"}, {}, [](Call& c) { ClickControl(c.usable()); }},
    {"key", {"control", "key"}, {}, [](Call& c) { PressKey(c.usable(), c["key"]); }},
    {"get", {"control"}, {}, Get},
    {"controls", {}, {}, [](Call& c) { c.reply["controls"] = ListControls(c.panel()); }},
    {"grid", {"control"}, {}, Grid},
    {"select", {"control"}, {"row", "col", "rowSel", "colSel"}, Select},
    {"mouse", {"control", "button"}, {"row", "col"}, Mouse},
    {"popup", {"control", "entry"}, {}, Popup},
    {"chart", {"control"}, {}, [](Call& c) { c.reply = DescribeChart(c.control()); }},
    {"clipboard", {}, {}, [](Call& c) { c.reply["text"] = QGuiApplication::clipboard()->text(); }},
    {"answer", {}, {}, Answer},
    {"close", {}, {}, Close},
    {"sql", {"text"}, {}, Sql},
    {"site", {"url"}, {}, Site},
    {"folder", {}, {}, [](Call& c) { c.reply["path"] = c.session().userFolder.string(); }},
    {"screenshot", {"file"}, {}, Screenshot},
};
// clang-format on

}  // namespace

Json RunCommand(Stage& stage, const Json& command) {
    const std::string name = command.value("do", "");
    const auto* found = std::ranges::find(kCommands, name, &Command::name);
    if (found == std::end(kCommands)) throw Refusal("unknown command '" + name + "'");
    for (const std::string field : found->texts) {
        if (command.contains(field) && command[field].is_string()) continue;
        throw Refusal("field '" + field + "' must be a text");
    }
    for (const std::string field : found->numbers) {
        if (command.contains(field) && command[field].is_number_integer()) continue;
        throw Refusal("field '" + field + "' must be a whole number");
    }
    Call call{stage, command};
    found->run(call);
    return call.reply;
}

}  // namespace ssq
