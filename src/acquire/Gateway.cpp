#include "acquire/Gateway.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <thread>
#include <utility>
#include <vector>

#include "acquire/gatewayWords.h"
#include "base/text.h"
#include "draws/Public_var.h"
#include "ui/Host.h"
#include "ui/Run.h"

namespace ssq {

namespace {

constexpr const char* kProgram = "ssq_gateway";

// A pipe that no other child inherits.
class Pipe {
  public:
    Pipe() {
        if (::pipe2(ends_.data(), O_CLOEXEC) != 0) ends_ = {-1, -1};
    }
    ~Pipe() {
        Close(0);
        Close(1);
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    int readEnd() const { return ends_[0]; }
    int writeEnd() const { return ends_[1]; }
    void Close(std::size_t end) {
        if (ends_[end] >= 0) ::close(std::exchange(ends_[end], -1));
    }

  private:
    std::array<int, 2> ends_{-1, -1};
};

std::vector<std::string> ArgumentsOf(const Session& session) {
    std::vector<std::string> arguments{kProgram, kEndWithInput, kPort,
                                       std::to_string(session.deployment.gatewayPort)};
    if (!session.deployment.sourceUrl.empty()) {
        arguments.insert(arguments.end(), {kSource, session.deployment.sourceUrl});
    }
    arguments.push_back((session.userFolder / "data" / "draws.csv").string());
    return arguments;
}

}  // namespace

class Gateway::Process {
  public:
    explicit Process(const Session& session) {
        const std::string program = (session.programFolder / kProgram).string();
        std::vector<std::string> arguments = ArgumentsOf(session);
        std::vector<char*> pointers;
        pointers.reserve(arguments.size() + 1);
        for (std::string& argument : arguments) pointers.push_back(argument.data());
        pointers.push_back(nullptr);
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, input_.readEnd(), STDIN_FILENO);
        posix_spawn_file_actions_adddup2(&actions, output_.writeEnd(), STDOUT_FILENO);
        posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
        const int error =
            posix_spawn(&id_, program.c_str(), &actions, nullptr, pointers.data(), environ);
        posix_spawn_file_actions_destroy(&actions);
        input_.Close(0);
        output_.Close(1);
        if (error == 0) return;
        id_ = -1;
        fault_ = std::string("数据网关 ") + kProgram +
                 (error == ENOENT ? " 不在程序的文件夹里" : " 不能启动");
    }

    // The end of its input ends it.
    ~Process() {
        if (id_ < 0) return;
        input_.Close(1);
        using namespace std::chrono_literals;
        constexpr int kPatience = 1000;  // times 2 ms
        for (int i = 0; i < kPatience; ++i) {
            if (::waitpid(id_, nullptr, WNOHANG) != 0) return;
            std::this_thread::sleep_for(2ms);
        }
        ::kill(id_, SIGKILL);
        ::waitpid(id_, nullptr, 0);
    }
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    // True once it serves. Two runs may wait, one inside the other.
    bool WaitUntilReady(Run& run, std::string& fault) {
        constexpr int kWaitMs = 20;
        const WaitCursor waiting(run.host());
        while (!isReady_ && fault_.empty()) {
            pollfd output{output_.readEnd(), POLLIN, 0};
            if (::poll(&output, 1, kWaitMs) > 0) Hear();
            if (!isReady_ && fault_.empty() && !run.YieldNow()) return false;
        }
        fault = fault_;
        return isReady_;
    }

    const std::string& notes() const { return notes_; }

  private:
    void Hear() {
        std::array<char, 4096> buffer{};
        const ssize_t size = ::read(output_.readEnd(), buffer.data(), buffer.size());
        if (size <= 0) {
            fault_ = "数据网关没有启动";
            return;
        }
        heard_.append(buffer.data(), static_cast<std::size_t>(size));
        for (std::size_t end = 0; (end = heard_.find('\n')) != std::string::npos;) {
            Take(heard_.substr(0, end));
            heard_.erase(0, end + 1);
        }
    }

    void Take(const std::string& line) {
        if (line == kReady) {
            isReady_ = true;
        } else if (line.starts_with(kFault)) {
            fault_ = line.substr(kFault.size());
        } else if (line.starts_with(kNote)) {
            notes_ += (notes_.empty() ? "" : "；") + line.substr(kNote.size());
        }
    }

    Pipe input_;
    Pipe output_;
    pid_t id_ = -1;
    bool isReady_ = false;
    std::string fault_;
    std::string notes_;
    std::string heard_;  // the start of a line
};

Gateway::Gateway(std::unique_ptr<Process> process) : process_(std::move(process)) {}

Gateway::~Gateway() = default;

const std::string& Gateway::notes() const {
    return process_->notes();
}

bool Gateway::Serves(const Session& session, const std::string& site) {
    return site == "http://127.0.0.1:" + std::to_string(session.deployment.gatewayPort);
}

std::shared_ptr<Gateway> Gateway::Use(Session& session, Run& run, std::string& fault) {
    std::shared_ptr<Gateway> gateway = session.gateway.lock();
    if (!gateway) {
        run.Tell("正在启动数据网关…");
        gateway.reset(new Gateway(std::make_unique<Process>(session)));
        session.gateway = gateway;
    }
    if (gateway->process_->WaitUntilReady(run, fault)) return gateway;
    return nullptr;
}

}  // namespace ssq
