// The fixture for services in Objective-C. Resets the fake system services first, and checks at the
// end that no object still has an owner or an observer.
#pragma once

#include "doubles/appearance.h"
#include "doubles/foundation_objects.h"
#include "doubles/main_app_service.h"
#include "doubles/observation.h"
#include "doubles/workspace.h"
#include "macos_test.h"

#include <optional>
#include <set>
#include <string>

namespace glidemap {

class CocoaTest : public MacosTest {
protected:
    CocoaTest() {
        test::mainAppService() = {};
        test::workspace() = {};
        test::resetAppearance();
        forGood = test::livingCocoaObjects();
        pool.emplace();
    }

    ~CocoaTest() override {
        test::closeMainAppService();
        test::closeWorkspace();
        pool.reset();
        EXPECT_EQ(test::forgetObservations(), 0U) << "observers that were not removed";
        EXPECT_EQ(test::livingCocoaObjects(), forGood) << "not released";
    }

private:
    std::multiset<std::string> forGood; // objects that live until the program exits
    std::optional<test::Pool> pool;
};

} // namespace glidemap
