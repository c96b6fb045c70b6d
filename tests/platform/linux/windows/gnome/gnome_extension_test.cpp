#include "desktops/private_bus.h"
#include "desktops/runtime_folder.h"
#include "desktops/scoped_environment.h"
#include "fake_gnome_shell.h"
#include "platform/linux/windows/gnome/gnome_extension.h"

#include <gio/gio.h>
#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

namespace glidemap {

void PrintTo(const GnomeExtension::Status& status, std::ostream* out) {
    *out << "{state " << static_cast<int>(status.state) << ", \"" << status.error << "\"}";
}

namespace {

using State = GnomeExtension::State;
using Status = GnomeExtension::Status;
using test::ScopedEnvironment;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Optional;

std::string read(const std::filesystem::path& file) {
    std::ostringstream text;
    text << std::ifstream(file).rdbuf();
    return text.str();
}

// The shell's settings, for this process only. One object serves all tests, because GLib chooses
// the backend once.
class ShellSettings {
public:
    ShellSettings() {
        setenv("GSETTINGS_BACKEND", "memory", 1);
        setenv("GSETTINGS_SCHEMA_DIR", GLIDEMAP_TEST_SCHEMAS, 1);
        settings = g_settings_new("org.gnome.shell");
        set("enabled-extensions", {});
        set("disabled-extensions", {});
    }

    ShellSettings(const ShellSettings&) = delete;
    ShellSettings& operator=(const ShellSettings&) = delete;
    ~ShellSettings() { g_object_unref(settings); }

    void set(const char* key, std::vector<const char*> list) {
        list.push_back(nullptr);
        g_settings_set_strv(settings, key, list.data());
    }

    std::vector<std::string> get(const char* key) {
        std::vector<std::string> list;
        char** const words = g_settings_get_strv(settings, key);
        for (char** word = words; *word != nullptr; ++word) {
            list.emplace_back(*word);
        }
        g_strfreev(words);
        return list;
    }

private:
    GSettings* settings = nullptr;
};

class GnomeExtensionTest : public testing::Test {
protected:
    void SetUp() override {
        for (const char* form : {"up-to-44", "from-45"}) {
            const auto inside = std::string("forms/") + form + "/" + GnomeExtension::uuid;
            folder.write(inside + "/metadata.json", std::string("data of ") + form);
            folder.write(inside + "/extension.js", std::string("code of ") + form);
        }
    }

    std::filesystem::path installed(const std::string& name) const {
        return folder.path() / "data/gnome-shell/extensions" / GnomeExtension::uuid / name;
    }

    test::RuntimeFolder folder;
    test::PrivateBus bus;
    ScopedEnvironment here{
        {{"DBUS_SESSION_BUS_ADDRESS", bus.address()}, {"XDG_DATA_HOME", folder.path() / "data"}}};
    ShellSettings settings;
    GnomeExtension extension{folder.path() / "forms"};
};

TEST_F(GnomeExtensionTest, ReportsNoShellWithoutABus) {
    const ScopedEnvironment nowhere{
        {{"DBUS_SESSION_BUS_ADDRESS", "unix:path=" + (folder.path() / "none").string()}}};
    EXPECT_EQ(extension.status(), (Status{State::noShell, ""}));
    EXPECT_THAT(extension.install(), Optional(HasSubstr("session bus")));
}

TEST_F(GnomeExtensionTest, InstallFailsWithoutAShell) {
    EXPECT_EQ(extension.status(), (Status{State::noShell, ""}));
    EXPECT_THAT(extension.install(), Optional(HasSubstr("org.gnome.Shell")));
    EXPECT_FALSE(std::filesystem::exists(installed("")));
}

TEST_F(GnomeExtensionTest, ReportsNoShellWhileTheShellStarts) {
    const FakeGnomeShell shell(bus.address(), {.isStarting = true});
    EXPECT_EQ(extension.status(), (Status{State::noShell, ""}));
    EXPECT_NE(extension.install(), std::nullopt);
}

TEST_F(GnomeExtensionTest, StateMatchesTheShellsReply) {
    struct Row {
        const char* said;
        Status expected;
    };
    const Row rows[] = {
        {"@a{sv} {}", {State::missing, ""}},
        {"{'state': <1.0>, 'error': <''>}", {State::on, ""}},
        {"{'state': <2.0>, 'error': <''>}", {State::off, ""}},
        {"{'state': <3.0>, 'error': <'it broke'>}", {State::failed, "it broke"}},
        {"{'state': <3.0>}", {State::failed, ""}},
        {"{'state': <4.0>, 'error': <''>}",
         {State::failed, "not made for this version of GNOME Shell"}},
        {"{'state': <6.0>, 'error': <''>}", {State::off, ""}},
        {"{'state': <'text'>}", {State::missing, ""}},
    };
    for (const Row& row : rows) {
        const FakeGnomeShell shell(bus.address(), {.extension = row.said});
        EXPECT_EQ(extension.status(), row.expected) << row.said;
    }
}

TEST_F(GnomeExtensionTest, InstallsTheExtensionVersionForTheShell) {
    struct Row {
        const char* version;
        const char* form;
    };
    const Row rows[] = {
        {"'3.38.6'", "up-to-44"}, {"'43.9'", "up-to-44"}, {"'44.0'", "up-to-44"},
        {"'45.beta'", "from-45"}, {"'45.0'", "from-45"},  {"'48.4'", "from-45"},
    };
    for (const Row& row : rows) {
        const FakeGnomeShell shell(bus.address(), {.version = row.version});
        EXPECT_EQ(extension.install(), std::nullopt);
        EXPECT_EQ(read(installed("metadata.json")), std::string("data of ") + row.form)
            << row.version;
        EXPECT_EQ(read(installed("extension.js")), std::string("code of ") + row.form)
            << row.version;
        EXPECT_EQ(std::filesystem::read_symlink(installed("program")),
                  std::filesystem::canonical("/proc/self/exe"));
    }
}

TEST_F(GnomeExtensionTest, NewExtensionIsPendingUntilTheNextLogin) {
    const FakeGnomeShell shell(bus.address(), {});
    settings.set("enabled-extensions", {"other@example.org"});
    settings.set("disabled-extensions", {"another@example.org", GnomeExtension::uuid});
    EXPECT_EQ(extension.install(), std::nullopt);
    EXPECT_THAT(settings.get("enabled-extensions"),
                ElementsAre("other@example.org", GnomeExtension::uuid));
    EXPECT_THAT(settings.get("disabled-extensions"), ElementsAre("another@example.org"));
    EXPECT_EQ(extension.status(), (Status{State::atNextLogin, ""}));
}

TEST_F(GnomeExtensionTest, InstallingTwiceEnablesTheExtensionOnce) {
    const FakeGnomeShell shell(bus.address(), {});
    EXPECT_EQ(extension.install(), std::nullopt);
    EXPECT_EQ(extension.install(), std::nullopt);
    EXPECT_THAT(settings.get("enabled-extensions"), ElementsAre(GnomeExtension::uuid));
}

TEST_F(GnomeExtensionTest, ShellEnablesALoadedExtension) {
    FakeGnomeShell shell(bus.address(), {.extension = "{'state': <2.0>}"});
    EXPECT_EQ(extension.install(), std::nullopt);
    EXPECT_THAT(shell.enabled(), ElementsAre(GnomeExtension::uuid));
    EXPECT_THAT(settings.get("enabled-extensions"), IsEmpty()); // left to the shell
}

TEST_F(GnomeExtensionTest, InstalledButDisabledExtensionCountsAsMissing) {
    const FakeGnomeShell shell(bus.address(), {});
    EXPECT_EQ(extension.install(), std::nullopt);
    settings.set("enabled-extensions", {});
    EXPECT_EQ(extension.status(), (Status{State::missing, ""}));
}

TEST_F(GnomeExtensionTest, EnabledExtensionWithoutFilesCountsAsMissing) {
    const FakeGnomeShell shell(bus.address(), {});
    settings.set("enabled-extensions", {GnomeExtension::uuid});
    EXPECT_EQ(extension.status(), (Status{State::missing, ""}));
}

TEST_F(GnomeExtensionTest, InstallReturnsWhyAFolderCannotBeCreated) {
    const FakeGnomeShell shell(bus.address(), {});
    folder.write("data/gnome-shell", "a file where a folder should be");
    EXPECT_THAT(extension.install(), Optional(HasSubstr("Not a directory")));
    EXPECT_THAT(settings.get("enabled-extensions"), IsEmpty());
}

TEST_F(GnomeExtensionTest, InstallFailsIfTheExtensionFilesAreMissing) {
    const FakeGnomeShell shell(bus.address(), {});
    const GnomeExtension without(folder.path() / "elsewhere");
    EXPECT_THAT(without.install(), Optional(HasSubstr("No such file or directory")));
    EXPECT_THAT(settings.get("enabled-extensions"), IsEmpty());
}

} // namespace

} // namespace glidemap
