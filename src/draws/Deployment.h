// Values that a deployment fixes at build time.
#pragma once

#include <string>

namespace ssq {

struct Deployment {
    std::string productName;
    std::string version;
    // Scheme and host without a closing slash; paths and query keys belong to the callers.
    std::string resultsHost;
    std::string orderHost;
    std::string salesHost;
    // The sites' pages on this machine, where a host above is this address (see acquire/Gateway.h).
    int gatewayPort = 0;
    std::string sourceUrl;  // of the draw notices that the gateway reads; empty for none
    std::string partnerHost;
    std::string partnerCoopId;
    std::string partnerAdId;
    // Complete links.
    std::string makerSite;
    std::string makerSiteCaption;
    std::string productPage;
    std::string formulaGuide;  // how to write formulas
    std::string contactLink;
};

// The values of this build (see cmake/deployment.cmake).
Deployment DefaultDeployment();

}  // namespace ssq
