// A file of draws of any bytes, and the same as a source's answer: what is kept is a history, and
// it is written as it is read.
#include "base/RedSet.h"
#include "draws/DrawsCsv.h"
#include "draws/IssueRules.h"
#include "fuzz/Fuzz.h"
#include "gateway/NoticeService.h"

namespace {

void CheckDraw(const ssq::PublishedDraw& published, const ssq::PublishedDraw* before) {
    const ssq::NewDraw& draw = published.draw;
    ssq::RedSet reds;
    for (const int red : draw.balls) reds.Add(red);
    ssq::Promise(reds.Count() == ssq::kRedsInDraw && draw.blue >= 1 && draw.blue <= ssq::kBlues);
    ssq::Promise(draw.drawn.empty() || draw.drawn.size() == 17);
    ssq::Promise(ssq::IsDrawIssue(std::to_string(draw.issue)));
    ssq::Promise(!before || (before->draw.issue < draw.issue && before->draw.date < draw.date));
    ssq::HasWholeNotice(published);
}

void CheckFile(std::string_view bytes) {
    const ssq::DrawsCsv csv = ssq::ReadDrawsCsv(bytes);
    const ssq::PublishedDraw* before = nullptr;
    for (const ssq::PublishedDraw& draw : csv.draws) {
        CheckDraw(draw, before);
        before = &draw;
    }
    for (const ssq::DrawsCsvFault& fault : csv.faults) {
        ssq::Promise(fault.line >= 1 && !fault.reason.empty());
    }
    const ssq::DrawsCsv again = ssq::ReadDrawsCsv(ssq::WriteDrawsCsv(csv.draws));
    ssq::Promise(again.faults.empty() && again.draws == csv.draws);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes = ssq::FuzzText(data, size);
    std::string fault;
    CheckFile(bytes);
    if (const auto csv = ssq::NoticesAsCsv(bytes, fault)) CheckFile(*csv);
    return 0;
}
