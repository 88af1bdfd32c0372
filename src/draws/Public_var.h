// What lives from the start of the program to its exit.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <utility>

#include "draws/Deployment.h"
#include "store/SqlConn.h"

namespace ssq {

class Gateway;
class Host;

// Main owns the one Session; everything else takes it by reference.
struct Session {
    Session(Host& presentation, std::filesystem::path folder)
        : host(presentation),
          programFolder(std::move(folder)),
          userFolder(programFolder),
          deployment(DefaultDeployment()) {}

    Host& host;
    // What stands beside the program: the manual, the updater.
    std::filesystem::path programFolder;
    // What belongs to the user: data/ssq.mdb and the files saved without asking where. The
    // program's folder, unless that can't be written.
    std::filesystem::path userFolder;
    Deployment deployment;
    Connection connection;
    std::weak_ptr<Gateway> gateway;  // while an update holds one
    // While the program comes up, a database that did not open has been told of already.
    bool isStarting = false;

    std::string LatestIssue;  // newest issue of cphm as text; empty while there is none
    std::int32_t DrawCount = 0;
};

}  // namespace ssq
