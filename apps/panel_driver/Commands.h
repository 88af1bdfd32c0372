// The commands of a script: what each does and what it adds to the reply.
#pragma once

#include <QJsonObject>
#include <functional>
#include <map>

class QWidget;

namespace ssq {

class Panels;
class Program;
class ScriptDesktop;

class Commands {
  public:
    Commands(Program& program, ScriptDesktop& desktop, Panels& panels);

    // Runs one command. Returns its own fields of the reply; throws a Refusal when it cannot be
    // carried out. Returns only after a modal window that it opened has been closed.
    QJsonObject Run(const QJsonObject& command);

  private:
    using Handler = std::function<QJsonObject(const QJsonObject&)>;

    void AddControlCommands();
    void AddGridCommands();
    void AddProgramCommands();

    QWidget& Panel() const;
    QWidget& Control(const QJsonObject& command) const;
    QWidget& UsableControl(const QJsonObject& command) const;

    QJsonObject Menu(const QJsonObject& command);
    QJsonObject AddressPanel(const QJsonObject& command);
    QJsonObject Get(const QJsonObject& command);
    QJsonObject Select(const QJsonObject& command);
    QJsonObject Mouse(const QJsonObject& command);
    QJsonObject Popup(const QJsonObject& command);
    QJsonObject Answer(const QJsonObject& command);
    QJsonObject Close(const QJsonObject& command);
    QJsonObject Sql(const QJsonObject& command);
    QJsonObject Site(const QJsonObject& command);
    QJsonObject Screenshot(const QJsonObject& command);

    Program& program_;
    ScriptDesktop& desktop_;
    Panels& panels_;
    std::map<QString, Handler> handlers_;
};

}  // namespace ssq
