// What the updates share: where their pages come from and how they end.
#pragma once

#include <memory>
#include <string>

namespace ssq {

class Gateway;
class Run;
struct Session;

enum class UpdateEnd {
    kDone,          // all there was
    kNotPublished,  // up to a draw of which the site does not tell yet
    kNoPage,        // a page did not come
    kFault,         // told in a box
    kStopped,       // the program is being closed, or a newer run has taken this one's place
};

struct UpdateResult {
    UpdateEnd end = UpdateEnd::kStopped;
    int written = 0;  // draws
    std::string box =
        {};  // the closing one, which the caller shows; empty where boxes have told it
    std::string detail = {};  // the issue not published, or why no page came
    std::string notes = {};   // what else is to be known of the source
};

// How an update ended, in one line for the status line: "已是最新", "已更新 3 期",
// "网络不通，未更新：没有收到 127.0.0.1 的网页（连接不上）". Empty for kStopped.
std::string StatusText(const UpdateResult& result);

// The pages of one update. Where the site is the gateway's address it runs for as long as this
// lives.
class PageSource {
  public:
    // `site` is scheme and host, as a deployment has them.
    PageSource(Session& session, Run& run, std::string site);

    // FetchPage of the site. A failure is told in the status line, too.
    std::string Fetch(const std::string& pathAndQuery);

    // Why the last page did not come, in words that name the host; empty when it came.
    const std::string& fault() const { return fault_; }

    // What the gateway says of its file and source; empty where all is well.
    std::string notes() const;

  private:
    Run& run_;
    std::string site_;
    std::string fault_;
    std::shared_ptr<Gateway> gateway_;
    bool isReachable_ = true;  // false where the gateway is needed and does not run
};

// How an update ends that a box has told the end of, or that is not wanted any more: by the fault
// of the site's last page.
UpdateResult EndOfUpdate(const PageSource& site, const Run& run, int written);

enum class IssueEnd {
    kWritten,
    kNotPublished,
    kFault,  // told in a box
};

// An update that asks for one draw after the other.
struct IssueUpdate {
    const char* name;     // of what is read, for the status line
    const char* pending;  // selects the issues that lack it
    std::string (*query)(const std::string& issue);
    // Stores what the page, without its blanks, tells of the issue.
    IssueEnd (*store)(Session& session, const std::string& issue, const std::string& page);
    const char* notPublished;  // closing boxes
    const char* latest;
    bool tellsOfQuery = true;  // shows the store's text when the issues cannot be read
};

// Stops at the first issue that is not written; what was written stays. Adds to `written`.
UpdateResult UpdateIssues(Session& session, Run& run, const std::string& host,
                          const IssueUpdate& update, int& written);

}  // namespace ssq
