// Updates against a site on loopback, with a database that they may change.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "acquire/Updates.h"
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

    // Acts once in the middle of the next update, at the first pump for which `isTime`.
    void InBetween(std::function<void()> action, std::function<bool()> isTime = {}) {
        database.host().onPump = [this, action, isTime] {
            if (isTime && !isTime()) return;
            database.host().onPump = nullptr;
            action();
        };
    }

    TestDatabase database;
    PageServer site;
    std::string status;  // the line that the window shows last
    Updates updates{database.session(),
                    {[this](const std::string& text) { status = text; }, [] {}}};
};

}  // namespace ssq
