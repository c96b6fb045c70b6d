#include "bindings/binding_store.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>

namespace glidemap {
namespace {

class BindingStoreTest : public testing::Test {
protected:
    BindingStoreTest() {
        std::string pattern = (std::filesystem::temp_directory_path() / "glidemapXXXXXX").string();
        support = mkdtemp(pattern.data());
    }
    ~BindingStoreTest() override { std::filesystem::remove_all(support); }

    std::filesystem::path support;
    std::filesystem::path file() const { return support / "Glidemap" / "bindings.json"; }
    BindingStore store() const {
        return BindingStore([folder = support] { return folder; });
    }
    std::string content() const {
        std::ostringstream text;
        text << std::ifstream(file()).rdbuf();
        return text.str();
    }
};

TEST_F(BindingStoreTest, AFirstLaunchMakesTheFolderAndWritesTheDefaults) {
    const BindingStore made = store();
    EXPECT_EQ(made.bindings()->size(), 3U);
    EXPECT_EQ(*store().bindings(), *made.bindings());
    const auto match = made.match(GestureType::drawCircle, "org.example.App");
    ASSERT_NE(match, nullptr);
    EXPECT_EQ(match->action, BindingAction(LockScreen{}));
    EXPECT_EQ(made.match(GestureType::pinchIn, std::nullopt), nullptr);
}

TEST_F(BindingStoreTest, WhatIsAssignedIsThereAtTheNextLaunch) {
    BindingStore made = store();
    BindingList list = *made.bindings();
    list.push_back({.gesture = GestureType::twoFingerDoubleTap,
                    .action = LaunchApp{"org.example.App", "Example"},
                    .scope = AppScope{"org.example.App", "Example"}});
    made.setBindings(list);
    EXPECT_EQ(*store().bindings(), list);
    EXPECT_TRUE(store().doubleTapBindingExists(2));
    EXPECT_FALSE(store().doubleTapBindingExists(3));
}

} // namespace
} // namespace glidemap
