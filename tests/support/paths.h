// Where the build and the sources keep what tests read.
#pragma once

#include <filesystem>

namespace ssq {

std::filesystem::path DeliveredDatabase();
std::filesystem::path SourceFolder();  // of the whole project
std::filesystem::path PanelDriver();   // the programs
std::filesystem::path GatewayProgram();

}  // namespace ssq
