#include "desktops/application_folder.h"
#include "desktops/scoped_environment.h"
#include "kit/patience.h"
#include "platform/linux/applications/desktop_entries.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <condition_variable>
#include <mutex>

namespace glidemap {
namespace {

using testing::ElementsAre;

class DesktopEntriesTest : public testing::Test {
protected:
    DesktopEntriesTest() { folder.clear(); }

    ~DesktopEntriesTest() override {
        thread.call([this] { entries.reset(); });
    }

    void load() {
        thread.call([this] {
            entries = std::make_unique<DesktopEntries>(thread, [this] { publish(); });
            publish();
        });
    }

    std::vector<DesktopEntry> all() {
        const std::lock_guard lock(mutex);
        return current;
    }

    // Waits until the entries have exactly these names.
    void expectNames(const std::vector<std::string>& expected) {
        std::unique_lock lock(mutex);
        published.wait_for(lock, test::patience, [&] { return namesOf(current) == expected; });
        EXPECT_EQ(namesOf(current), expected);
    }

    ApplicationFolder& folder = ApplicationFolder::instance();
    DesktopThread thread;

private:
    static std::vector<std::string> namesOf(const std::vector<DesktopEntry>& entries) {
        std::vector<std::string> names;
        for (const DesktopEntry& entry : entries)
            names.push_back(entry.name);
        std::sort(names.begin(), names.end());
        return names;
    }

    void publish() {
        const std::lock_guard lock(mutex);
        current = entries->all();
        published.notify_all();
    }

    std::mutex mutex;
    std::condition_variable published;
    std::vector<DesktopEntry> current;
    std::unique_ptr<DesktopEntries> entries;
};

TEST_F(DesktopEntriesTest, ReadsFieldsFromTheEntry) {
    const auto path =
        folder.install("org.example.Editor", "Name=Editor\nExec=env A=b /bin/sh /opt/editor.sh %U\n"
                                             "StartupWMClass=Editor-class\nNoDisplay=true\n");
    load();
    expectNames({"Editor"});
    EXPECT_THAT(all(), ElementsAre(DesktopEntry{.identifier = "org.example.Editor",
                                                .name = "Editor",
                                                .path = path,
                                                .windowClass = "Editor-class",
                                                .program = "editor.sh",
                                                .flatpak = "",
                                                .steamGame = "",
                                                .visible = false,
                                                .inTerminal = false}));
}

TEST_F(DesktopEntriesTest, IdentifierIncludesTheSubfolder) {
    std::filesystem::create_directories(folder.path() / "user/applications/vendor");
    folder.install("vendor/tool", "Name=Tool\nExec=sh\nTerminal=true\n");
    load();
    expectNames({"Tool"});
    EXPECT_EQ(all().front().identifier, "vendor-tool");
    EXPECT_TRUE(all().front().inTerminal);
    EXPECT_TRUE(all().front().visible);
}

TEST_F(DesktopEntriesTest, OmitsAnEntryWhoseProgramIsMissing) {
    folder.install("hidden", "Name=Hidden\nExec=sh\nHidden=true\n");
    folder.install("gone", "Name=Gone\nExec=/nowhere/gone\n");
    folder.install("tried", "Name=Tried\nExec=sh\nTryExec=/nowhere/tried\n");
    folder.install("here", "Name=Here\nExec=sh\n");
    load();
    expectNames({"Here"});
}

TEST_F(DesktopEntriesTest, UserEntryOverridesSystemEntry) {
    folder.installForAll("tool", "Name=System's\nExec=sh\n");
    folder.installForAll("other", "Name=Other\nExec=sh\n");
    folder.install("tool", "Name=User's\nExec=sh\n");
    load();
    expectNames({"Other", "User's"});
}

// Sets the language before the other base class and the members are constructed, because their
// threads must not read the environment while it changes.
struct InChinese {
    const test::ScopedEnvironment language{
        {{"LANGUAGE", "zh_CN"}, {"LC_ALL", "zh_CN.UTF-8"}, {"LANG", "zh_CN.UTF-8"}}};
};

class ChineseDesktopEntriesTest : private InChinese, public DesktopEntriesTest {};

TEST_F(ChineseDesktopEntriesTest, NamesAreInTheUsersLanguage) {
    folder.install("files", "Name=Files\nName[zh_CN]=文件\nName[de]=Dateien\nExec=sh\n");
    load();
    expectNames({"文件"});
}

TEST_F(DesktopEntriesTest, DetectsInstalledAndRemovedEntries) {
    load();
    expectNames({});
    folder.install("one", "Name=One\nExec=sh\n");
    expectNames({"One"});
    folder.installForAll("two", "Name=Two\nExec=sh\n");
    expectNames({"One", "Two"});
    folder.install("one", "Name=One, renamed\nExec=sh\n");
    expectNames({"One, renamed", "Two"});
    folder.remove("one");
    expectNames({"Two"});
}

} // namespace
} // namespace glidemap
