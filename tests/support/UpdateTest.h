// An update against a site on loopback, with a database that it may change.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/LotterySite.h"
#include "support/TestDatabase.h"

namespace ssq {

class UpdateTest : public testing::Test {
  protected:
    UpdateTest() {
        Deployment& hosts = database.session().deployment;
        hosts.resultsHost = hosts.orderHost = hosts.salesHost = site.url();
    }

    // The boxes since the last call.
    std::vector<std::string> Told() {
        std::vector<std::string> texts = database.host().Texts();
        database.host().boxes.clear();
        return texts;
    }

    TestDatabase database;
    PageServer site;
};

}  // namespace ssq
