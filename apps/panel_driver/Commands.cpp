#include "Commands.h"

#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QJsonArray>
#include <QMenuBar>
#include <QWidget>

#include "Controls.h"
#include "Grids.h"
#include "MenuEntry.h"
#include "Panels.h"
#include "Refusal.h"
#include "ScriptDesktop.h"
#include "app/Program.h"
#include "ui/qt/GridView.h"
#include "ui/qt/PanelContext.h"

namespace ssq {

namespace {

QString TextField(const QJsonObject& command, const QString& name) {
    const QJsonValue value = command.value(name);
    if (!value.isString()) throw Refusal(u"field '%1' must be a text"_qs.arg(name));
    return value.toString();
}

int NumberField(const QJsonObject& command, const QString& name) {
    const QJsonValue value = command.value(name);
    const int number = value.toInt();
    if (!value.isDouble() || value.toDouble() != number) {
        throw Refusal(u"field '%1' must be a whole number"_qs.arg(name));
    }
    return number;
}

QJsonValue ToJson(const Value& value) {
    if (const auto* number = std::get_if<std::int64_t>(&value)) {
        return QJsonValue(static_cast<qint64>(*number));
    }
    if (const auto* number = std::get_if<double>(&value)) return *number;
    if (const auto* text = std::get_if<std::string>(&value)) return Qs(*text);
    return QJsonValue::Null;
}

QJsonArray FieldNames(const Recordset& recordset) {
    QJsonArray names;
    for (int field = 0; field < recordset.FieldCount(); ++field) {
        names.append(Qs(recordset.FieldName(field)));
    }
    return names;
}

QJsonArray Rows(Recordset& recordset) {
    QJsonArray rows;
    for (; !recordset.eof(); recordset.MoveNext()) {
        QJsonArray row;
        for (int field = 0; field < recordset.FieldCount(); ++field) {
            row.append(ToJson(recordset.Field(field)));
        }
        rows.append(row);
    }
    return rows;
}

}  // namespace

Commands::Commands(Program& program, ScriptDesktop& desktop, Panels& panels)
    : program_(program), desktop_(desktop), panels_(panels) {
    AddControlCommands();
    AddGridCommands();
    AddProgramCommands();
}

QJsonObject Commands::Run(const QJsonObject& command) {
    const QString name = TextField(command, u"do"_qs);
    const auto handler = handlers_.find(name);
    if (handler == handlers_.end()) throw Refusal(u"unknown command '%1'"_qs.arg(name));
    return handler->second(command);
}

void Commands::AddControlCommands() {
    handlers_[u"set"_qs] = [this](const QJsonObject& command) {
        SetControl(UsableControl(command), TextField(command, u"value"_qs));
        return QJsonObject();
    };
    handlers_[u"choose"_qs] = [this](const QJsonObject& command) {
        ChooseInControl(UsableControl(command), NumberField(command, u"index"_qs));
        return QJsonObject();
    };
    handlers_[u"click"_qs] = [this](const QJsonObject& command) {
        ClickControl(UsableControl(command));
        return QJsonObject();
    };
    handlers_[u"key"_qs] = [this](const QJsonObject& command) {
        PressKey(UsableControl(command), TextField(command, u"key"_qs));
        return QJsonObject();
    };
    handlers_[u"get"_qs] = [this](const QJsonObject& command) { return Get(command); };
}

void Commands::AddGridCommands() {
    handlers_[u"grid"_qs] = [this](const QJsonObject& command) {
        return DescribeGrid(AsGrid(Control(command)).grid());
    };
    handlers_[u"chart"_qs] = [this](const QJsonObject& command) {
        return DescribeChart(AsChart(Control(command)));
    };
    handlers_[u"select"_qs] = [this](const QJsonObject& command) { return Select(command); };
    handlers_[u"mouse"_qs] = [this](const QJsonObject& command) { return Mouse(command); };
    handlers_[u"popup"_qs] = [this](const QJsonObject& command) { return Popup(command); };
}

void Commands::AddProgramCommands() {
    handlers_[u"menu"_qs] = [this](const QJsonObject& command) { return Menu(command); };
    handlers_[u"panel"_qs] = [this](const QJsonObject& command) { return AddressPanel(command); };
    handlers_[u"answer"_qs] = [this](const QJsonObject& command) { return Answer(command); };
    handlers_[u"close"_qs] = [this](const QJsonObject& command) { return Close(command); };
    handlers_[u"sql"_qs] = [this](const QJsonObject& command) { return Sql(command); };
    handlers_[u"site"_qs] = [this](const QJsonObject& command) { return Site(command); };
    handlers_[u"screenshot"_qs] = [this](const QJsonObject& command) {
        return Screenshot(command);
    };
    handlers_[u"clipboard"_qs] = [](const QJsonObject&) {
        return QJsonObject{{u"text"_qs, QGuiApplication::clipboard()->text()}};
    };
    handlers_[u"folder"_qs] = [this](const QJsonObject&) {
        return QJsonObject{{u"path"_qs, Qs(program_.session().programFolder.string())}};
    };
}

QWidget& Commands::Panel() const {
    if (QWidget* panel = panels_.Addressed()) return *panel;
    throw Refusal(u"no panel is open"_qs);
}

QWidget& Commands::Control(const QJsonObject& command) const {
    return FindControl(Panel(), TextField(command, u"control"_qs));
}

QWidget& Commands::UsableControl(const QJsonObject& command) const {
    return FindUsableControl(Panel(), TextField(command, u"control"_qs));
}

QJsonObject Commands::Menu(const QJsonObject& command) {
    const QString name = TextField(command, u"entry"_qs);
    if (const QWidget* modal = Panels::Modal()) {
        throw Refusal(u"the modal window %1 is in front of the menu"_qs.arg(Panels::Name(*modal)));
    }
    QWidget& window = program_.mainWindow();
    const auto* bar = window.findChild<QMenuBar*>();
    if (!bar || !window.isVisible()) throw Refusal(u"the main window's menu is not open"_qs);
    QAction* entry = FindMenuEntry(bar->actions(), name);
    const QString fault = MenuEntryFault(entry, name);
    if (!fault.isEmpty()) throw Refusal(fault);
    entry->trigger();
    return {};
}

QJsonObject Commands::AddressPanel(const QJsonObject& command) {
    const QString name = TextField(command, u"name"_qs);
    if (!panels_.Address(name)) throw Refusal(u"no panel '%1' is open"_qs.arg(name));
    return {};
}

QJsonObject Commands::Get(const QJsonObject& command) {
    const QString name = TextField(command, u"control"_qs);
    const auto* bar = Panel().findChild<QMenuBar*>(QString(), Qt::FindDirectChildrenOnly);
    const QAction* entry = bar ? FindMenuEntry(bar->actions(), name) : nullptr;
    if (!entry) return DescribeControl(Control(command));
    return {{u"text"_qs, entry->text()},
            {u"enabled"_qs, entry->isEnabled()},
            {u"visible"_qs, entry->isVisible()}};
}

QJsonObject Commands::Select(const QJsonObject& command) {
    SelectCells(AsGrid(UsableControl(command)), NumberField(command, u"row"_qs),
                NumberField(command, u"col"_qs), NumberField(command, u"rowSel"_qs),
                NumberField(command, u"colSel"_qs));
    return {};
}

QJsonObject Commands::Mouse(const QJsonObject& command) {
    GridView& view = AsGrid(UsableControl(command));
    const int row = NumberField(command, u"row"_qs);
    const int col = NumberField(command, u"col"_qs);
    const QString button = TextField(command, u"button"_qs);
    if (button == u"left") {
        ClickCell(view, row, col, Qt::LeftButton);
    } else if (button == u"right") {
        ClickCell(view, row, col, Qt::RightButton);
    } else if (button == u"double") {
        DoubleClickCell(view, row, col);
    } else {
        throw Refusal(u"button must be left, right or double"_qs);
    }
    return {};
}

QJsonObject Commands::Popup(const QJsonObject& command) {
    GridView& view = AsGrid(UsableControl(command));
    const int row = NumberField(command, u"row"_qs);
    const int col = NumberField(command, u"col"_qs);
    desktop_.ChooseInPopup(TextField(command, u"entry"_qs));
    ClickCell(view, row, col, Qt::RightButton);
    const QString fault = desktop_.EndPopup();
    if (!fault.isEmpty()) throw Refusal(fault);
    return {};
}

QJsonObject Commands::Answer(const QJsonObject& command) {
    if (command.contains(u"file")) {
        desktop_.AnswerFileDialog(TextField(command, u"file"_qs));
        return {};
    }
    const QString button = TextField(command, u"button"_qs);
    const bool ok = button == u"OK" || button == u"确定";
    if (!ok && button != u"Cancel" && button != u"取消") {
        throw Refusal(u"button must be OK, Cancel, 确定 or 取消"_qs);
    }
    desktop_.AnswerQuestion(ok);
    return {};
}

QJsonObject Commands::Close(const QJsonObject&) {
    QWidget& panel = Panel();
    if (!(panel.windowFlags() & Qt::WindowCloseButtonHint)) {
        throw Refusal(u"%1 has no close button"_qs.arg(Panels::Name(panel)));
    }
    panel.close();
    return {};
}

QJsonObject Commands::Sql(const QJsonObject& command) {
    const std::string sql = TextField(command, u"text"_qs).toStdString();
    std::string errorText;
    Recordset recordset;
    if (!program_.session().connection.OpenQuery(sql, errorText, recordset)) {
        throw Refusal(Qs(errorText));
    }
    return {{u"fields"_qs, FieldNames(recordset)}, {u"rows"_qs, Rows(recordset)}};
}

QJsonObject Commands::Site(const QJsonObject& command) {
    std::string url = TextField(command, u"url"_qs).toStdString();
    if (url.ends_with('/')) url.pop_back();
    Deployment& deployment = program_.session().deployment;
    deployment.resultsHost = url;
    deployment.orderHost = url;
    deployment.salesHost = url;
    deployment.partnerHost = url;
    return {};
}

QJsonObject Commands::Screenshot(const QJsonObject& command) {
    const QString file = TextField(command, u"file"_qs);
    QWidget& panel = Panel();
    const QString folder = QFileInfo(file).absolutePath();
    if (!QDir().mkpath(folder) || !panel.grab().save(file, "PNG")) {
        throw Refusal(u"cannot write %1"_qs.arg(file));
    }
    return {};
}

}  // namespace ssq
