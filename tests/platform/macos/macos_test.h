// The fixture for macOS services. Resets the fakes first, and checks at the end that no fake object
// still has an owner.
#pragma once

#include "doubles/app_kit.h"
#include "doubles/core_foundation_objects.h"
#include "doubles/journal.h"
#include "doubles/quartz.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace glidemap {

using Lines = std::vector<std::string>;

class MacosTest : public testing::Test {
protected:
    MacosTest() {
        test::takeJournal();
        test::appKit() = {};
        test::coreFoundation() = {};
        test::quartz() = {};
    }

    ~MacosTest() override {
        EXPECT_EQ(test::livingObjects(), std::multiset<std::string>()) << "not released";
        EXPECT_EQ(test::installedMonitors(), 0U) << "not removed";
    }

    static Lines journal() { return test::takeJournal(); }
};

} // namespace glidemap
