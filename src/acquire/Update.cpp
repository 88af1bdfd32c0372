#include "acquire/Update.h"

#include <utility>

#include "acquire/Gateway.h"
#include "acquire/getWWW.h"
#include "draws/Public_var.h"
#include "draws/queries.h"
#include "ui/Host.h"
#include "ui/Run.h"

namespace ssq {

namespace {

std::string EndText(const UpdateResult& result) {
    const std::string written = "已更新 " + std::to_string(result.written) + " 期";
    const bool any = result.written > 0;
    switch (result.end) {
        case UpdateEnd::kDone:
            return any ? written : "已是最新";
        case UpdateEnd::kNotPublished:
            return (any ? written + "，" : "") + result.detail + "期尚未公布";
        case UpdateEnd::kNoPage:
            return "网络不通，" + (any ? written : "未更新") + "：" + result.detail;
        case UpdateEnd::kFault:
            return any ? written + "，没有更新完" : "未更新";
        default:
            return {};
    }
}

}  // namespace

std::string StatusText(const UpdateResult& result) {
    const std::string text = EndText(result);
    return text.empty() || result.notes.empty() ? text : text + "（" + result.notes + "）";
}

PageSource::PageSource(Session& session, Run& run, std::string site)
    : run_(run), site_(std::move(site)) {
    if (!Gateway::Serves(session, site_)) return;
    gateway_ = Gateway::Use(session, run, fault_);
    isReachable_ = gateway_ != nullptr;
}

std::string PageSource::Fetch(const std::string& pathAndQuery) {
    std::string page = isReachable_ ? FetchPage(run_, site_ + pathAndQuery, fault_) : std::string();
    if (!fault_.empty()) run_.Tell(fault_);
    return page;
}

std::string PageSource::notes() const {
    return gateway_ ? gateway_->notes() : std::string();
}

UpdateResult EndOfUpdate(const PageSource& site, const Run& run, int written) {
    UpdateResult result;
    if (!run.goesOn()) return result;
    result.end = site.fault().empty() ? UpdateEnd::kFault : UpdateEnd::kNoPage;
    result.written = written;
    result.detail = site.fault();
    result.notes = site.notes();
    return result;
}

UpdateResult UpdateIssues(Session& session, Run& run, const std::string& host,
                          const IssueUpdate& update, int& written) {
    PageSource site(session, run, host);
    Recordset issues;
    std::string errorText;
    const bool read = update.tellsOfQuery
                          ? QueryOrTell(session, update.pending, issues)
                          : session.connection.OpenQuery(update.pending, errorText, issues);
    if (!read) return EndOfUpdate(site, run, written);
    // Each row reaches the disk by itself, so that what is counted as written is there.
    for (int number = 1; !issues.eof(); issues.MoveNext(), ++number) {
        const std::string issue = issues.Text(0);
        run.Tell("正在读取" + std::string(update.name) + "第 " + std::to_string(number) + "/" +
                 std::to_string(issues.recordcount()) + " 期…");
        const std::string page = WithoutBlanks(site.Fetch(update.query(issue)));
        if (!run.goesOn()) return {};
        const IssueEnd end = update.store(session, issue, page);
        if (end == IssueEnd::kNotPublished && site.fault().empty() && run.goesOn()) {
            return {UpdateEnd::kNotPublished, written, update.notPublished, issue, site.notes()};
        }
        if (end == IssueEnd::kNotPublished) session.host.ShowMessage(update.notPublished);
        if (end != IssueEnd::kWritten) return EndOfUpdate(site, run, written);
        ++written;
    }
    if (!run.goesOn()) return {};
    const std::string box =
        written == 0 ? update.latest : "共更新" + std::to_string(written) + "期！";
    return {UpdateEnd::kDone, written, box, {}, site.notes()};
}

}  // namespace ssq
