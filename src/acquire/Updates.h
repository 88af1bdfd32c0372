// The updates as the main window starts them: one of each kind at a time, and all in turn.
#pragma once

#include <array>
#include <functional>
#include <string>

#include "acquire/Update.h"
#include "draws/Deployment.h"

namespace ssq {

class Updates {
  public:
    struct Window {
        std::function<void(const std::string& text)> showStatus;
        std::function<void()> takeNewDraws;  // LatestIssue and DrawCount have changed
    };

    Updates(Session& session, Window window);

    // One update with its closing box. Started a second time while it is under way, the newer run
    // takes over, and its box counts what both have written.
    void Draws() { RunAlone(kDraws); }
    void Prizes() { RunAlone(kPrizes); }
    void BallOrder() { RunAlone(kBallOrder); }

    // All three in turn; in place of their closing boxes one line sums up, in a box and in the
    // status line. A site that gave no page is not asked again.
    void All();

  private:
    enum Kind : std::size_t { kDraws, kPrizes, kBallOrder };

    struct Entry {
        const char* name;
        UpdateResult (*update)(Session& session, Run& run, int& written);
        std::string Deployment::*host;
        int newest = 0;  // number of the run that is wanted
        int underWay = 0;
        int written = 0;
        UpdateResult last = {};
    };

    class Watcher;

    void RunAlone(Kind kind);
    // The result of the newest run of the kind, which may not be the one started here.
    const UpdateResult& RunOne(Entry& entry);

    Session& session_;
    Window window_;
    std::array<Entry, 3> entries_;
    int allNewest_ = 0;  // number of the run over all that is wanted
};

}  // namespace ssq
