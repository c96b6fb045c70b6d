#include "kit/in_environment.h"
#include "kit/temporary_folder.h"
#include "platform/linux/session/autostart_entry.h"

#include <gtest/gtest.h>

#include <ostream>

namespace glidemap {

using Status = LoginItemService::Status;

void PrintTo(Status status, std::ostream* stream) {
    constexpr const char* names[] = {"notRegistered", "enabled", "requiresApproval", "notFound"};
    *stream << names[static_cast<int>(status)];
}

namespace {

namespace fs = std::filesystem;
using test::contentOf;
using test::InEnvironment;
using test::TemporaryFolder;

constexpr const char* fileName = "org.glidemap.Glidemap.desktop";

class AutostartEntryTest : public testing::Test {
protected:
    std::string entry(const std::string& more = "") const {
        return "[Desktop Entry]\nType=Application\nName=Glidemap\nIcon=x\nExec=" +
               program.string() + "\n" + more;
    }
    void ofUser(const std::string& text) const { folder.write(fs::path("user") / fileName, text); }
    void ofSystem(const std::string& text) const {
        folder.write(fs::path("system") / fileName, text);
    }
    void ofLesserSystem(const std::string& text) const {
        folder.write(fs::path("lesser") / fileName, text);
    }

    AutostartPlaces places() const {
        return {folder.path() / "user",
                {folder.path() / "system", folder.path() / "lesser"},
                {{"GNOME"}, "/usr/bin:/bin"},
                program};
    }

    TemporaryFolder folder;
    fs::path program = folder.writeProgram("bin/glidemap");
    fs::path userFile = folder.path() / "user" / fileName;
    AutostartEntry item{places()};
};

TEST_F(AutostartEntryTest, MissingFileIsNotRegistered) {
    EXPECT_EQ(item.status(), Status::notRegistered);
}

TEST_F(AutostartEntryTest, StatusFollowsTheContentOfTheUserFile) {
    struct Row {
        std::string text;
        Status status;
    };
    const Row rows[] = {
        {entry(), Status::enabled},
        {entry("Hidden=true\n"), Status::notRegistered},
        {entry("OnlyShowIn=KDE;\n"), Status::notRegistered},
        {entry("X-GNOME-Autostart-enabled=false\n"), Status::requiresApproval},
        {entry("TryExec=/nowhere\n"), Status::notFound},
        {"", Status::notFound},
    };
    for (const Row& row : rows) {
        ofUser(row.text);
        EXPECT_EQ(item.status(), row.status) << row.text;
    }
}

TEST_F(AutostartEntryTest, StatusComesFromTheFileWithTheHighestPriority) {
    ofLesserSystem(entry());
    EXPECT_EQ(item.status(), Status::enabled);
    ofSystem(entry("Hidden=true\n"));
    EXPECT_EQ(item.status(), Status::notRegistered);
    ofUser(entry());
    EXPECT_EQ(item.status(), Status::enabled);
    ofUser("");
    EXPECT_EQ(item.status(), Status::notFound);
}

TEST_F(AutostartEntryTest, RegisteringWritesAnEntryThatTheNextRunReads) {
    EXPECT_EQ(item.registerItem(), std::nullopt);
    EXPECT_EQ(AutostartEntry(places()).status(), Status::enabled);
    EXPECT_EQ(contentOf(userFile), "[Desktop Entry]\nExec=" + program.string() +
                                       "\nType=Application\nName=Glidemap\n"
                                       "Icon=org.glidemap.Glidemap\n");
}

TEST_F(AutostartEntryTest, RegisteringKeepsAFileThatAlreadyStartsTheProgram) {
    ofSystem(entry("X-Mine=1\n"));
    EXPECT_EQ(item.registerItem(), std::nullopt);
    EXPECT_FALSE(fs::exists(userFile));
    ofUser(entry("X-Mine=2\n"));
    EXPECT_EQ(item.registerItem(), std::nullopt);
    EXPECT_EQ(contentOf(userFile), entry("X-Mine=2\n"));
}

TEST_F(AutostartEntryTest, RegisteringRepairsTheUserFile) {
    ofUser(entry("Hidden=true\nX-Mine=1\n"));
    EXPECT_EQ(item.registerItem(), std::nullopt);
    EXPECT_EQ(contentOf(userFile), entry("X-Mine=1\n"));
}

TEST_F(AutostartEntryTest, RegisteringReplacesAnEntryForAnotherProgram) {
    ofUser("[Desktop Entry]\nType=Application\nName=x\nIcon=x\nExec=/bin/true\n");
    EXPECT_EQ(item.registerItem(), std::nullopt);
    EXPECT_EQ(contentOf(userFile),
              "[Desktop Entry]\nType=Application\nName=x\nIcon=x\nExec=" + program.string() + "\n");
}

TEST_F(AutostartEntryTest, UnregisteringRemovesTheUserFile) {
    ofUser(entry());
    EXPECT_EQ(item.unregisterItem(), std::nullopt);
    EXPECT_FALSE(fs::exists(userFile));
    EXPECT_EQ(item.status(), Status::notRegistered);
}

TEST_F(AutostartEntryTest, UnregisteringAMissingEntrySucceeds) {
    EXPECT_EQ(item.unregisterItem(), std::nullopt);
    EXPECT_FALSE(fs::exists(userFile));
}

TEST_F(AutostartEntryTest, UnregisteringHidesTheSystemFile) {
    ofSystem(entry());
    EXPECT_EQ(item.unregisterItem(), std::nullopt);
    EXPECT_EQ(item.status(), Status::notRegistered);
    EXPECT_EQ(contentOf(userFile), "[Desktop Entry]\nHidden=true\nType=Application\n"
                                   "Name=Glidemap\nIcon=org.glidemap.Glidemap\n");
    EXPECT_EQ(item.registerItem(), std::nullopt);
    EXPECT_EQ(item.status(), Status::enabled);
}

TEST_F(AutostartEntryTest, UnregisteringDoesNotHideASystemFileThatStartsNothing) {
    ofSystem(entry("OnlyShowIn=KDE;\n"));
    ofUser(entry());
    EXPECT_EQ(item.unregisterItem(), std::nullopt);
    EXPECT_FALSE(fs::exists(userFile));
}

TEST_F(AutostartEntryTest, MaskedEntryCountsAsNotFoundAndCanBeRegistered) {
    ofSystem(entry());
    fs::create_directories(userFile.parent_path());
    fs::create_symlink("/dev/null", userFile);
    EXPECT_EQ(item.status(), Status::notFound);
    EXPECT_EQ(item.registerItem(), std::nullopt);
    EXPECT_EQ(item.status(), Status::enabled);
}

TEST_F(AutostartEntryTest, FailureReturnsTheSystemErrorText) {
    folder.write("user", "a file in the way"); // blocks even root, which ignores permissions
    EXPECT_EQ(item.registerItem(), std::generic_category().message(ENOTDIR));
    EXPECT_EQ(item.status(), Status::notRegistered);
    fs::remove(folder.path() / "user");
    folder.write(userFile / "in the way", "");
    EXPECT_EQ(item.registerItem(), std::generic_category().message(EISDIR));
    EXPECT_EQ(item.unregisterItem(), std::generic_category().message(ENOTEMPTY));
}

TEST_F(AutostartEntryTest, ReadsFoldersAndDesktopsFromTheEnvironment) {
    struct Row {
        const char* home;
        const char* folders;
        fs::path user;
        std::vector<fs::path> system;
    };
    const InEnvironment user("HOME", "/home/a");
    const Row rows[] = {
        {"/c", "/d:/e", "/c/autostart", {"/d/autostart", "/e/autostart"}},
        {nullptr, nullptr, "/home/a/.config/autostart", {"/etc/xdg/autostart"}},
        {"", "", "/home/a/.config/autostart", {"/etc/xdg/autostart"}},
        {"c", "d::/e:", "/home/a/.config/autostart", {"/e/autostart"}},
    };
    for (const Row& row : rows) {
        const InEnvironment home("XDG_CONFIG_HOME", row.home);
        const InEnvironment folders("XDG_CONFIG_DIRS", row.folders);
        const InEnvironment desktop("XDG_CURRENT_DESKTOP", "ubuntu:GNOME");
        const InEnvironment path("PATH", "/usr/bin");
        const AutostartPlaces found = AutostartPlaces::ofThisProcess();
        EXPECT_EQ(found.userFolder, row.user);
        EXPECT_EQ(found.systemFolders, row.system);
        EXPECT_EQ(found.session.desktops, (std::vector<std::string>{"ubuntu", "GNOME"}));
        EXPECT_EQ(found.session.searchPath, "/usr/bin");
        EXPECT_EQ(found.program, fs::canonical("/proc/self/exe"));
    }
}

} // namespace
} // namespace glidemap
