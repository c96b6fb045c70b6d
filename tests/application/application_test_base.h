// The base class of the program's tests. If a program of the stage is not installed, the tests are
// skipped with a message.
#pragma once

#include "running_glidemap.h"
#include "waiting.h"

#include <gtest/gtest.h>

namespace glidemap::test {

class ApplicationTest : public testing::Test {
protected:
    void SetUp() override {
        if (!ApplicationStage::isInstalled()) {
            GTEST_SKIP() << "Xvfb, openbox or at-spi2-core is not installed";
        }
    }
};

} // namespace glidemap::test
