// ssq_gateway: serves the pages that the updates read from a file of draws.
#include <httplib.h>
#include <poll.h>
#include <sys/signalfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "acquire/gatewayWords.h"
#include "acquire/getWWW.h"
#include "base/charset.h"
#include "base/dates.h"
#include "base/numbers.h"
#include "draws/Deployment.h"
#include "draws/IssueRules.h"
#include "gateway/DatabaseExport.h"
#include "gateway/DrawFile.h"
#include "gateway/NoticeService.h"
#include "gateway/answers.h"
#include "gateway/merge.h"
#include "ui/Host.h"
#include "ui/Run.h"

namespace {

namespace fs = std::filesystem;

constexpr const char* kUsage =
    "ssq_gateway [--port N] [--source URL [--replace]] [--end-with-input] [FILE]\n"
    "    serves the draws of FILE (data/draws.csv beside the program) on 127.0.0.1\n"
    "ssq_gateway --check FILE\n"
    "    tells which lines are not served, and why\n"
    "ssq_gateway --export DATABASE FILE\n"
    "    writes the draws of a database to FILE\n";
constexpr int kUsageFault = 2;

struct Options {
    int port = ssq::DefaultDeployment().gatewayPort;
    std::string source;
    bool replace = false;
    bool endWithInput = false;
    fs::path file;
};

// Nothing for arguments that cannot be.
std::optional<Options> ReadOptions(const std::vector<std::string>& arguments) {
    Options options;
    std::error_code unknown;
    options.file = fs::read_symlink("/proc/self/exe", unknown).parent_path() / "data" / "draws.csv";
    bool hasFile = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        const bool takesValue = argument == ssq::kPort || argument == ssq::kSource;
        if (takesValue && i + 1 == arguments.size()) return std::nullopt;
        if (argument == ssq::kPort) {
            options.port = ssq::ToInt(ssq::WholePart(arguments[++i]));
        } else if (argument == ssq::kSource) {
            options.source = arguments[++i];
        } else if (argument == "--replace") {
            options.replace = true;
        } else if (argument == ssq::kEndWithInput) {
            options.endWithInput = true;
        } else if (argument.starts_with("-") || std::exchange(hasFile, true)) {
            return std::nullopt;
        } else {
            options.file = argument;
        }
    }
    constexpr int kLastPort = 65'535;
    return options.port > 0 && options.port <= kLastPort ? std::optional(options) : std::nullopt;
}

void Say(std::string_view word, const std::string& text) {
    std::printf("%.*s%s\n", static_cast<int>(word.size()), word.data(), text.c_str());
    std::fflush(stdout);
}

void Log(const std::string& line) {
    std::fprintf(stderr, "%s %s\n", ssq::NowText().c_str(), line.c_str());
}

// The end of the program: a signal, or the end of its input.
class Ending {
  public:
    explicit Ending(bool withInput) : withInput_(withInput) {
        sigset_t signals;
        sigemptyset(&signals);
        sigaddset(&signals, SIGTERM);
        sigaddset(&signals, SIGINT);
        pthread_sigmask(SIG_BLOCK, &signals, nullptr);
        signals_ = ::signalfd(-1, &signals, SFD_CLOEXEC);
    }
    ~Ending() { ::close(signals_); }
    Ending(const Ending&) = delete;
    Ending& operator=(const Ending&) = delete;

    // Waits for it; -1 for as long as it takes.
    bool HasCome(int waitMs) const {
        pollfd waiting[] = {{signals_, POLLIN, 0}, {STDIN_FILENO, POLLIN, 0}};
        return ::poll(waiting, withInput_ ? 2 : 1, waitMs) > 0;
    }

  private:
    int signals_ = -1;
    bool withInput_;
};

// A fetch ends with the program.
class Console final : public ssq::Host {
  public:
    explicit Console(const Ending& ending) : ending_(ending) {}

  protected:
    void DoShowBox(const std::string&, const std::string& text) override { Log(text); }
    void DoPump() override {
        if (ending_.HasCome(0)) Stop();
    }

  private:
    const Ending& ending_;
};

void LogFaults(const ssq::DrawFile& file) {
    for (const ssq::DrawsCsvFault& bad : file.csv().faults) {
        Log("line " + std::to_string(bad.line) + ": " + bad.reason);
    }
}

// What the source tells, or why nothing.
std::optional<ssq::DrawsCsv> ReadSource(ssq::Run& run, const std::string& url, std::string& fault) {
    ssq::FetchOptions options;
    options.silence = options.totalTime = options.connectTimeout;
    const auto body = ssq::FetchBody(run, url, fault, options);
    if (!body) return std::nullopt;
    const auto csv = ssq::NoticesAsCsv(body->bytes, fault);
    return csv ? std::optional(ssq::ReadDrawsCsv(*csv, ssq::LatestDrawDate())) : std::nullopt;
}

// Says which draws of the source the file did not take, and why; `newest` is the file's last issue.
void SayLeftOut(const std::vector<ssq::DrawsCsvFault>& faults, std::int32_t newest,
                const ssq::MergeCount& count) {
    if (!faults.empty()) {
        Say(ssq::kNote, "数据来源有 " + std::to_string(faults.size()) + " 期没有采用，第 " +
                            std::to_string(faults.front().line - 1) + " 条" +
                            faults.front().reason);
    }
    if (count.behindHole > 0) {
        Say(ssq::kNote, "数据来源在 " + std::to_string(newest) + " 期与 " +
                            std::to_string(count.behindHole) + " 期之间缺期，之后的没有采用");
    }
    if (count.different > 0) {
        Say(ssq::kNote,
            "数据来源有 " + std::to_string(count.different) + " 期与文件不同，没有改动");
    }
}

// Merges the source into the file; where anything is wrong with it, the file stays as it is.
void MergeSource(ssq::Run& run, const Options& options, ssq::DrawFile& file) {
    std::string fault;
    const auto fresh = ReadSource(run, options.source, fault);
    if (!fresh) return Say(ssq::kNote, "数据来源没有用上，" + fault);
    for (const ssq::DrawsCsvFault& bad : fresh->faults) {
        Log("source, notice " + std::to_string(bad.line - 1) + ": " + bad.reason);
    }
    std::vector<ssq::PublishedDraw> draws = file.csv().draws;
    const ssq::MergeCount count = ssq::MergeDraws(draws, fresh->draws, options.replace);
    Log("source: " + ssq::MergeText(count));
    SayLeftOut(fresh->faults, draws.empty() ? 0 : draws.back().draw.issue, count);
    if (count.added + count.completed + count.replaced == 0) return;
    if (!ssq::ReadDrawsCsv(ssq::WriteDrawsCsv(draws)).faults.empty()) {
        return Say(ssq::kNote, "数据来源没有用上，开奖日期与文件矛盾");
    }
    if (!file.Replace(std::move(draws), fault)) Say(ssq::kNote, "数据文件没有写入：" + fault);
}

// Reads the file and its source. False after saying why it cannot be served.
bool Load(const Options& options, const Ending& ending, ssq::DrawFile& file) {
    std::string fault;
    std::error_code unreadable;
    const bool mayLack = !options.source.empty() && !fs::exists(options.file, unreadable);
    if (file.Refresh(fault) == ssq::Refreshed::kFailed && !mayLack) {
        Say(ssq::kFault, "数据文件 " + options.file.string() + " 读不了：" + fault);
        return false;
    }
    LogFaults(file);
    Console console(ending);
    if (!options.source.empty()) {
        ssq::Run run(console);
        MergeSource(run, options, file);
    }
    if (!file.Remarks().empty()) Say(ssq::kNote, file.Remarks());
    return !console.stopping();
}

// A second gateway on the port is refused, which the library's own options would allow.
void SetSocketOptions(socket_t socket) {
    const int yes = 1;
    ::setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
}

void Respond(ssq::DrawFile& file, const httplib::Request& request, httplib::Response& response) {
    std::string fault;
    const ssq::Refreshed refreshed = file.Refresh(fault);
    if (refreshed == ssq::Refreshed::kFailed) Log("keeping the draws read before: " + fault);
    if (refreshed == ssq::Refreshed::kRead) {
        LogFaults(file);
        if (!file.Remarks().empty()) Log(file.Remarks());
    }
    const auto page = ssq::Answer(file, request.path,
                                  [&](const char* key) { return request.get_param_value(key); });
    const auto bytes = page ? ssq::EncodeGbk(*page) : std::nullopt;
    if (bytes) {
        response.set_content(*bytes, "text/html; charset=gbk");
    } else {
        response.status = 404;
    }
}

int Serve(const Options& options) {
    const Ending ending(options.endWithInput);
    httplib::Server server;
    server.set_socket_options(SetSocketOptions);
    server.set_keep_alive_max_count(1);
    // A client that sends nothing or half a request holds up the end for so long; the program waits
    // two seconds for its gateway.
    constexpr int kSilenceSeconds = 1;
    server.set_keep_alive_timeout(kSilenceSeconds);
    server.set_read_timeout(kSilenceSeconds);
    server.set_logger([](const httplib::Request& request, const httplib::Response& response) {
        Log(request.method + " " + request.target + " " + std::to_string(response.status) + " " +
            std::to_string(response.body.size()));
    });
    if (!server.bind_to_port("127.0.0.1", options.port)) {
        Say(ssq::kFault, "数据网关的端口 " + std::to_string(options.port) + " 已被占用");
        return EXIT_FAILURE;
    }
    ssq::DrawFile file(options.file);
    if (!Load(options, ending, file)) return EXIT_FAILURE;
    std::mutex mutex;  // guards the file, since each request has a thread
    server.Get(".*", [&](const httplib::Request& request, httplib::Response& response) {
        const std::lock_guard lock(mutex);
        Respond(file, request, response);
    });
    std::thread listener([&] { server.listen_after_bind(); });
    // A stop before the server runs would be lost.
    while (!server.is_running()) std::this_thread::yield();
    Say(ssq::kReady, "");
    ending.HasCome(-1);
    server.stop();
    listener.join();
    return EXIT_SUCCESS;
}

int Check(const fs::path& path) {
    ssq::DrawFile file(path);
    std::string fault;
    if (file.Refresh(fault) == ssq::Refreshed::kFailed) {
        std::printf("%s\n", fault.c_str());
        return EXIT_FAILURE;
    }
    for (const ssq::DrawsCsvFault& bad : file.csv().faults) {
        std::printf("第 %d 行：%s\n", bad.line, bad.reason.c_str());
    }
    const auto listed = file.listed();
    std::printf("%zu 期", file.csv().draws.size());
    if (!listed.empty()) {
        std::printf("，开奖列表 %d 到 %d 期", listed.front().draw.issue, listed.back().draw.issue);
    }
    std::printf("，%zu 行不正确\n", file.csv().faults.size());
    return file.Remarks().empty() ? EXIT_SUCCESS : EXIT_FAILURE;
}

int Export(const fs::path& database, const fs::path& file) {
    std::string told;
    const bool done = ssq::ExportDatabase(database, file, told);
    std::printf("%s\n", told.c_str());
    return done ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    if (arguments.size() == 2 && arguments[0] == "--check") return Check(arguments[1]);
    if (arguments.size() == 3 && arguments[0] == "--export") {
        return Export(arguments[1], arguments[2]);
    }
    if (const auto options = ReadOptions(arguments)) return Serve(*options);
    std::fputs(kUsage, stderr);
    return kUsageFault;
}
