#include "core/lang.h"
#include "kit/in_environment.h"
#include "kit/temporary_folder.h"
#include "platform/qt/qt_user_defaults.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace glidemap {
namespace {

namespace fs = std::filesystem;

class QtUserDefaultsTest : public testing::Test {
protected:
    void write(const std::string& text) const { temporary.write("glidemap/glidemap.ini", text); }

    test::TemporaryFolder temporary;
    const fs::path folder = temporary.path();
    const fs::path file = folder / "glidemap" / "glidemap.ini";
};

TEST_F(QtUserDefaultsTest, FirstLaunchFindsNoValuesAndCreatesNoFile) {
    {
        const QtUserDefaults defaults(file);
        EXPECT_EQ(defaults.string("appLanguage"), std::nullopt);
        EXPECT_EQ(defaults.boolean("masterEnabled"), std::nullopt);
    }
    EXPECT_FALSE(fs::exists(file));
}

TEST_F(QtUserDefaultsTest, ValuesPersistUntilTheNextLaunch) {
    {
        QtUserDefaults defaults(file);
        defaults.setString("appLanguage", "zh");
        defaults.setBoolean("masterEnabled", false);
    }
    const QtUserDefaults next(file);
    EXPECT_EQ(next.string("appLanguage"), "zh");
    EXPECT_EQ(next.boolean("masterEnabled"), false);
}

// Reads the file with a second object before the first object is destroyed. After a crash, the next
// launch reads the file in this state.
TEST_F(QtUserDefaultsTest, WritesValuesImmediately) {
    QtUserDefaults defaults(file);
    for (const bool value : {false, true}) {
        defaults.setBoolean("masterEnabled", value);
        EXPECT_EQ(QtUserDefaults(file).boolean("masterEnabled"), value);
    }
    defaults.setString("appLanguage", "fr");
    EXPECT_EQ(QtUserDefaults(file).string("appLanguage"), "fr");
}

TEST_F(QtUserDefaultsTest, FileIsPlainText) {
    QtUserDefaults defaults(file);
    defaults.setString("appLanguage", "zh");
    defaults.setBoolean("masterEnabled", true);
    std::ifstream stream(file, std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(stream), {}),
              "[General]\nappLanguage=zh\nmasterEnabled=true\n");
}

TEST_F(QtUserDefaultsTest, EveryTextIsPreserved) {
    for (const std::string& text :
         {std::string(), std::string("zh-Hans"), std::string("a, b; c"), std::string("\"quoted\""),
          std::string("first\nsecond\r\n\tthird"), std::string("触控板 🙂"),
          std::string(" spaces "), std::string("@Invalid()"), std::string("@ByteArray(x)"),
          std::string("back\\slash"), std::string("a=b # no comment"), std::string("[General]"),
          std::string("nul\0inside", 10), std::string(100000, 'x')}) {
        QtUserDefaults defaults(file);
        defaults.setString("appLanguage", text);
        EXPECT_EQ(defaults.string("appLanguage"), text);
        EXPECT_EQ(QtUserDefaults(file).string("appLanguage"), text);
    }
}

TEST_F(QtUserDefaultsTest, ReadsOnlyTrueAndFalseAsBooleans) {
    struct Row {
        const char* written;
        std::optional<bool> read;
    };
    const Row rows[] = {
        {"true", true},
        {"false", false},
        {"\"true\"", true},
        {" true ", true},
        {"", std::nullopt},
        {"1", std::nullopt},
        {"0", std::nullopt},
        {"TRUE", std::nullopt},
        {"False", std::nullopt},
        {"yes", std::nullopt},
        {"on", std::nullopt},
        {"truee", std::nullopt},
        {"true, false", std::nullopt},
        {"@Invalid()", std::nullopt},
        {"@ByteArray(true)", std::nullopt},
        {"\" true\"", std::nullopt},
        {"null", std::nullopt},
    };
    for (const Row& row : rows) {
        write(std::string("[General]\nmasterEnabled=") + row.written + "\n");
        EXPECT_EQ(QtUserDefaults(file).boolean("masterEnabled"), row.read) << row.written;
    }
}

TEST_F(QtUserDefaultsTest, DoesNotReadAListAsText) {
    write("[General]\nappLanguage=zh, en\n");
    EXPECT_EQ(QtUserDefaults(file).string("appLanguage"), std::nullopt);
}

TEST_F(QtUserDefaultsTest, ReadsValidLinesOfADamagedFileAndCanStillWriteValues) {
    struct Row {
        const char* what;
        std::string text;
        std::optional<std::string> language;
    };
    const Row rows[] = {
        {"nothing", "", std::nullopt},
        {"no settings", "this is no such file", std::nullopt},
        {"a line without a value", "[General]\nnonsense\nappLanguage=zh\n", "zh"},
        {"an unfinished section", "[General\nappLanguage=zh\n", "zh"},
        {"bytes",
         std::string("\x7f"
                     "ELF\0\1\2\3\xff\xfe\n=\n",
                     13),
         std::nullopt},
        {"cut in the middle", "[General]\nappLang", std::nullopt},
    };
    for (const Row& row : rows) {
        write(row.text);
        {
            QtUserDefaults defaults(file);
            EXPECT_EQ(defaults.string("appLanguage"), row.language) << row.what;
            defaults.setBoolean("masterEnabled", false);
            EXPECT_EQ(defaults.boolean("masterEnabled"), false) << row.what;
        }
        EXPECT_EQ(QtUserDefaults(file).boolean("masterEnabled"), false) << row.what;
    }
}

// The writes fail even for root, which ignores permissions.
TEST_F(QtUserDefaultsTest, KeepsAnUnwritableValueInMemory) {
    fs::create_directories(file); // a folder in place of the file
    const auto below = folder / "plain" / "glidemap.ini";
    std::ofstream(folder / "plain") << "a file in the place of the folder";
    for (const fs::path& place : {file, below, fs::path("/proc/glidemap/glidemap.ini")}) {
        {
            QtUserDefaults defaults(place);
            defaults.setBoolean("masterEnabled", false);
            defaults.setString("appLanguage", "zh");
            EXPECT_EQ(defaults.boolean("masterEnabled"), false) << place;
            EXPECT_EQ(defaults.string("appLanguage"), "zh") << place;
        }
        EXPECT_EQ(QtUserDefaults(place).boolean("masterEnabled"), std::nullopt) << place;
    }
}

TEST_F(QtUserDefaultsTest, StandardFileIsInTheUserConfigurationFolder) {
    const test::InEnvironment configuration("XDG_CONFIG_HOME", folder.c_str());
    EXPECT_EQ(QtUserDefaults::standardFile(), file);
}

TEST_F(QtUserDefaultsTest, LanguageSurvivesARestart) {
    const auto launch = [this] {
        return Lang(std::make_shared<QtUserDefaults>(file));
    };
    EXPECT_EQ(launch().code(), "en");
    launch().setCode("zh");
    EXPECT_EQ(launch().code(), "zh");
    launch().setCode("fr");
    EXPECT_EQ(launch().code(), "fr");
    EXPECT_EQ(launch().choose("yes", "是"), "yes");
}

} // namespace
} // namespace glidemap
