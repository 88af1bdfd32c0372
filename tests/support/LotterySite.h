// A lottery site on loopback: the gateway's pages, served as the real sites do.
#pragma once

#include <string>
#include <vector>

#include "gateway/pages.h"
#include "support/PageServer.h"

namespace ssq {

// 33 down to 01.
std::vector<std::string> DescendingNumbers();

// Pages of the list by number, from 1, as GBK, each after a delay; empty behind the last.
PageServer::Handler ListPages(std::vector<std::string> pages, std::chrono::milliseconds delay = {});

// One page, as GBK, whatever is asked.
PageServer::Handler Always(const std::string& page);

}  // namespace ssq
