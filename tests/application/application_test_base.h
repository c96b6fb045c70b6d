// What the tests of the program share: they are skipped, and say so, where there is no desktop to run
// on.
#pragma once

#include "running_glidemap.h"
#include "waiting.h"

#include <gtest/gtest.h>

namespace glidemap::application {

class ApplicationTest : public testing::Test {
protected:
    void SetUp() override {
        if (!Stage::isInstalled()) {
            GTEST_SKIP() << "Xvfb, openbox or at-spi2-core is not installed";
        }
    }
};

} // namespace glidemap::application
