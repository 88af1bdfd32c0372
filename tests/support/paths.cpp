#include "support/paths.h"

namespace ssq {

std::filesystem::path DeliveredDatabase() {
    return SSQ_DELIVERED_DATABASE;
}

std::filesystem::path SourceFolder() {
    return SSQ_SOURCE_FOLDER;
}

std::filesystem::path PanelDriver() {
    return SSQ_PANEL_DRIVER;
}

std::filesystem::path GatewayProgram() {
    return SSQ_GATEWAY;
}

}  // namespace ssq
