#include "kit/in_environment.h"
#include "kit/temporary_folder.h"
#include "platform/linux/desktop/user_folders.h"

#include <gtest/gtest.h>

namespace glidemap {
namespace {

using test::InEnvironment;

TEST(UserFoldersTest, UsesXdgFolderVariablesOnlyIfTheyHoldAnAbsolutePath) {
    struct Row {
        const char* value;
        const char* configuration;
        const char* data;
    };
    const Row rows[] = {
        {"/given", "/given", "/given"},
        {"given", "/home/a/.config", "/home/a/.local/share"},
        {"", "/home/a/.config", "/home/a/.local/share"},
        {nullptr, "/home/a/.config", "/home/a/.local/share"},
    };
    const InEnvironment home("HOME", "/home/a");
    for (const Row& row : rows) {
        const InEnvironment configuration("XDG_CONFIG_HOME", row.value);
        const InEnvironment data("XDG_DATA_HOME", row.value);
        EXPECT_EQ(userConfigurationFolder(), row.configuration);
        EXPECT_EQ(userDataFolder(), row.data);
    }
}

TEST(UserFoldersTest, MissingHomeVariableFallsBackToTheUserDatabase) {
    const InEnvironment home("HOME", nullptr);
    const InEnvironment data("XDG_DATA_HOME", nullptr);
    EXPECT_TRUE(userDataFolder().is_absolute());
    EXPECT_TRUE(userDataFolder().native().ends_with("/.local/share"));
}

} // namespace
} // namespace glidemap
