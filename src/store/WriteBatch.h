// Many small writes that reach the disk in one go.
#pragma once

#include <string>

#include "ui/Host.h"

namespace ssq {

class Connection;

// While a WriteBatch lives, the statements of its run share a transaction, which reaches the disk
// at Commit and before each pump of the event loop (a box included). What was executed before a
// failed statement is kept.
//
// A commit that fails ends the run: what was executed since the last one is lost, every further
// statement of the run fails with the store's text, and so does Commit. What the user starts in a
// pump is another run and is not touched; while it has control no transaction of this one is open.
//
// Batches nest: one that starts inside another's transaction leaves the end to it.
class WriteBatch final : public PumpListener {
  public:
    WriteBatch(Host& host, Connection& connection);
    // Commits and shows nothing: without Commit the run has failed and told so, or the program is
    // being closed, and what was done before that is kept where it can be.
    ~WriteBatch() override;
    WriteBatch(const WriteBatch&) = delete;
    WriteBatch& operator=(const WriteBatch&) = delete;

    // Ends the batch. False with the store's text when not all of it has reached the disk.
    [[nodiscard]] bool Commit(std::string& errorText);

    void BeforePump() override;
    void AfterPump() override;

  private:
    void Begin();
    void Flush();
    void End();

    Host& host_;
    Connection& connection_;
    bool isOver_;          // from the start in an inner batch
    bool isOpen_ = false;  // a transaction of this batch
    int pumps_ = 0;        // that this batch's run is in, one inside the other
    std::string failure_;  // of a commit; empty while all went well
};

}  // namespace ssq
