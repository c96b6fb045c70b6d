#include "desktops/application_folder.h"
#include "desktops/scoped_environment.h"
#include "platform/linux/applications/entry_command.h"

#include <gio/gdesktopappinfo.h>
#include <gmock/gmock.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace glidemap {
namespace {

using test::ScopedEnvironment;
using testing::ElementsAre;
using testing::IsEmpty;

class EntryCommandTest : public testing::Test {
protected:
    EntryCommandTest() { folder.clear(); }

    EntryCommand commandOfEntry(const std::string& keys, const std::string& url = "") const {
        const auto path = folder.install("some", "Name=Some\n" + keys);
        const std::unique_ptr<GDesktopAppInfo, decltype(&g_object_unref)> entry(
            g_desktop_app_info_new_from_filename(path.c_str()), g_object_unref);
        EXPECT_NE(entry, nullptr);
        return entry != nullptr ? commandOf(entry.get(), url) : EntryCommand{};
    }

    // Returns a folder for PATH that contains only programs with these names.
    std::string onlyPrograms(const std::vector<std::string>& names) const {
        const auto bin = folder.path() / "only";
        std::filesystem::remove_all(bin);
        std::filesystem::create_directories(bin);
        for (const std::string& name : names) {
            std::filesystem::create_symlink("/bin/true", bin / name);
        }
        return bin;
    }

    ApplicationFolder& folder = ApplicationFolder::instance();
};

TEST_F(EntryCommandTest, SplitsTheCommandLikeAShell) {
    EXPECT_THAT(
        commandOfEntry("Exec=sh \"two words\" 'three more words' back\\\\\\\\slash\n").words,
        ElementsAre("sh", "two words", "three more words", "back\\slash"));
    EXPECT_THAT(commandOfEntry("Exec=sh \"\\\\$HOME\" \\\\$HOME ~ * ; #no\n").words,
                ElementsAre("sh", "$HOME", "$HOME", "~", "*", ";"));
    EXPECT_THAT(commandOfEntry("Exec=sh %u %F %i\n").words, ElementsAre("sh"));
    EXPECT_THAT(commandOfEntry("Exec=sh %c\nName[de]=Etwas\n").words, ElementsAre("sh", "Some"));
}

TEST_F(EntryCommandTest, PassesAURLWithShellCharactersAsOneWord) {
    const std::string url = "https://example.org/?a=1&b='c' d;$(touch x)";
    EXPECT_THAT(commandOfEntry("Exec=sh -c %u\n", url).words, ElementsAre("sh", "-c", url));
}

TEST_F(EntryCommandTest, UsesTheFirstInstalledTerminal) {
    const ScopedEnvironment here({{"PATH", onlyPrograms({"sh", "foot", "xterm", "konsole"})}});
    const auto bin = folder.path() / "only";
    EXPECT_THAT(commandOfEntry("Terminal=true\nExec=sh -c 'two words'\n").words,
                ElementsAre((bin / "konsole").string(), "-e", "sh", "-c", "two words"));
    std::filesystem::remove(bin / "konsole");
    std::filesystem::remove(bin / "xterm");
    EXPECT_THAT(commandOfEntry("Terminal=true\nExec=sh\n").words,
                ElementsAre((bin / "foot").string(), "sh"));
}

TEST_F(EntryCommandTest, ReturnsAnErrorWithoutATerminal) {
    const ScopedEnvironment here({{"PATH", onlyPrograms({"sh"})}});
    const EntryCommand command = commandOfEntry("Terminal=true\nExec=sh\n");
    EXPECT_THAT(command.words, IsEmpty());
    EXPECT_EQ(command.problem, "no terminal is installed to run it in");
}

} // namespace
} // namespace glidemap
