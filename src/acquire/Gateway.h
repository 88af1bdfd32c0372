// The program beside this one that serves the sites' pages from a file, for deployments without
// sites of their own (apps/gateway).
#pragma once

#include <memory>
#include <string>

namespace ssq {

class Run;
struct Session;

// A gateway under way; it ends with its last user. Nothing runs between updates.
class Gateway {
  public:
    // Whether the site, scheme and host, is the gateway's address.
    static bool Serves(const Session& session, const std::string& site);

    // The gateway that another update holds, or a new one: ssq_gateway in the program's folder on
    // data/draws.csv beside the database. Waits until it answers. Null, with the reason in Chinese
    // in `fault`, when it is missing, its port is taken or its file cannot be read; then, without
    // one, when the run has ended.
    static std::shared_ptr<Gateway> Use(Session& session, Run& run, std::string& fault);

    // What it said of its file and source before it served; empty when all is well.
    const std::string& notes() const;

    ~Gateway();
    Gateway(const Gateway&) = delete;
    Gateway& operator=(const Gateway&) = delete;

  private:
    class Process;

    explicit Gateway(std::unique_ptr<Process> process);

    std::unique_ptr<Process> process_;
};

}  // namespace ssq
