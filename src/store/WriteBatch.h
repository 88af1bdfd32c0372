// Many small writes that reach the disk in one go.
#pragma once

#include <string>

#include "ui/Host.h"

namespace ssq {

class Connection;

// While a WriteBatch lives, the statements of its run share a transaction, which is committed at
// the batch's end and before each pump of the event loop (a box included). What was executed
// before a failure is kept; a commit that fails is told with the store's text. Batches nest: one
// that starts inside another's transaction leaves the end to it.
class WriteBatch final : public PumpListener {
  public:
    WriteBatch(Host& host, Connection& connection);
    ~WriteBatch() override;
    WriteBatch(const WriteBatch&) = delete;
    WriteBatch& operator=(const WriteBatch&) = delete;

    void BeforePump() override;
    void AfterPump() override;

  private:
    void Begin();
    void Commit();

    Host& host_;
    Connection& connection_;
    bool isInner_;
    std::string commitError_;  // shown once the batch has ended
};

}  // namespace ssq
