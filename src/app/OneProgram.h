// One program to a folder: two would learn into the same tables.
#pragma once

#include <QLocalServer>
#include <QLockFile>
#include <filesystem>
#include <functional>

namespace ssq {

class OneProgram {
  public:
    // `folder` holds data/ssq.mdb. It is held until the end of the object, or of the process:
    // what a killed program leaves behind hinders nobody.
    explicit OneProgram(const std::filesystem::path& folder);

    // False while another program holds the folder. A folder that nothing can be written to is
    // shared.
    bool isFirst() const { return isFirst_; }

    // In the first program: `onCalled` is to bring its window forward.
    void Answer(std::function<void()> onCalled);

    // In a second one: asks the first to come forward. False when it does not answer.
    bool CallFirst() const;

  private:
    QLockFile lock_;
    bool isFirst_;
    QString name_;  // of the first program's ear
    QLocalServer server_;
};

}  // namespace ssq
