#include "ui_settings/settings_stage.h"

#include <gtest/gtest.h>

namespace glidemap {
namespace {

TEST(SettingsTexts, Title) {
    test::SettingsStage stage;
    stage.open();
    EXPECT_EQ(stage.text("title"), "Trackpad Gesture Bindings");
}

} // namespace
} // namespace glidemap
