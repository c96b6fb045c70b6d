#include "app/launch_options.h"
#include "platform/launch_words.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace glidemap {
namespace {

LaunchOption optionOf(std::vector<std::string> words) {
    std::vector<char*> arguments;
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    return launchOption(arguments);
}

TEST(LaunchWordsTest, IgnoresArgumentsAddedByTheSystem) {
    struct Row {
        std::vector<std::string> words;
        LaunchOption expected;
    };
    for (const Row& row : std::vector<Row>{
             {{}, LaunchOption::run},
             {{"-psn_0_123456"}, LaunchOption::run},
             {{"-AppleLanguages", "(zh-Hans)"}, LaunchOption::run},
             {{"-AppleLanguages"}, LaunchOption::run},
             {{"-AppleLanguages", "(zh-Hans)", "-AppleLocale", "zh_CN"}, LaunchOption::run},
             {{"-AppleTextDirection", "--verbose"}, LaunchOption::runVerbosely},
             {{"--verbose", "-psn_0_1"}, LaunchOption::runVerbosely},
             {{"-psn_0_1", "--version"}, LaunchOption::version},
             {{"-AppleLocale", "zh_CN", "--help", "-psn_0_1"}, LaunchOption::help},
             {{"-psn"}, LaunchOption::wrong},
             {{"-psn_0_1", "zh_CN"}, LaunchOption::wrong},
             {{"-apple", "zh_CN"}, LaunchOption::wrong},
             {{"-AppleLocale", "zh_CN", "nonsense"}, LaunchOption::wrong},
             {{"--verbose", "-psn_0_1", "--help"}, LaunchOption::wrong},
             {{"--nonsense"}, LaunchOption::wrong},
             {{""}, LaunchOption::wrong},
         }) {
        EXPECT_EQ(optionOf(row.words), row.expected) << testing::PrintToString(row.words);
    }
}

TEST(LaunchWordsTest, HelpListsExactlyTheMacosOptions) {
    const std::string help = launchHelp;
    for (const std::string_view here : {"--verbose", "--diagnose", "--version", "--help",
                                        "GLIDEMAP_LOG", "menu bar", "Command-Q"}) {
        EXPECT_THAT(help, testing::HasSubstr(std::string(here)));
    }
    for (const std::string_view elsewhere :
         {"Ctrl", "GLIDEMAP_TOUCH_DRIVER", "GLIDEMAP_RECORDING", "status bar", "desktop"}) {
        EXPECT_THAT(help, testing::Not(testing::HasSubstr(std::string(elsewhere))));
    }
}

} // namespace
} // namespace glidemap
