#include "desktops/program.h"
#include "desktops/runtime_folder.h"
#include "platform/linux/applications/process_reader.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <fstream>
#include <sstream>

namespace glidemap {
namespace {

using namespace test;

// A shell that writes "ready" and runs until the test ends it.
class Shell {
public:
    explicit Shell(const std::string& script = "echo ready; read line",
                   const Environment& more = {})
        : program({{"/bin/sh", "-c", script, "a name", "with (brackets) 1 2 3"},
                   withMore(folder, more),
                   folder.path() / "log"}) {
        EXPECT_EQ(program.nextLine(), "ready");
    }

    pid_t process() const { return program.process(); }

private:
    static Environment withMore(const RuntimeFolder& home, const Environment& more) {
        Environment all = plainEnvironment(home.path());
        all.insert(more.begin(), more.end());
        return all;
    }

    RuntimeFolder folder;
    Program program;
};

std::string contentOf(const std::string& path) {
    std::ostringstream content;
    content << std::ifstream(path).rdbuf();
    return content.str();
}

TEST(KernelProcessReader, ReadsThePropertiesOfAProcess) {
    const Shell shell;
    const ProcessFacts facts = KernelProcessReader().read(shell.process());
    EXPECT_EQ(facts.executable, std::filesystem::canonical("/bin/sh"));
    EXPECT_THAT(facts.arguments, testing::ElementsAre("/bin/sh", "-c", "echo ready; read line",
                                                      "a name", "with (brackets) 1 2 3"));
    EXPECT_EQ(facts.controlGroups,
              contentOf("/proc/" + std::to_string(shell.process()) + "/cgroup"));
    EXPECT_EQ(facts.launchedFrom, "");
}

TEST(KernelProcessReader, IgnoresALaunchVariableInheritedFromTheParent) {
    const Environment inherited = {{"GIO_LAUNCHED_DESKTOP_FILE", "/a/b.desktop"},
                                   {"GIO_LAUNCHED_DESKTOP_FILE_PID", "1"}};
    const Shell child("echo ready; read line", inherited);
    EXPECT_EQ(KernelProcessReader().read(child.process()).launchedFrom, "");

    const Shell launched(
        "test -n \"$again\" && { echo ready; read line; exit; }\n"
        "again=1 GIO_LAUNCHED_DESKTOP_FILE_PID=$$ "
        "GIO_LAUNCHED_DESKTOP_FILE=/a/b.desktop exec sh -c 'echo ready; read line'");
    EXPECT_EQ(KernelProcessReader().read(launched.process()).launchedFrom, "/a/b.desktop");
}

TEST(KernelProcessReader, DetectsAControllingTerminal) {
    if (!isInstalled("script"))
        GTEST_SKIP() << "script, which creates a terminal, is not installed";
    const Shell without;
    EXPECT_FALSE(KernelProcessReader().read(without.process()).onTerminal);

    const RuntimeFolder folder;
    Program terminal({{"script", "--quiet", "--command", "echo $$; exec cat", "/dev/null"},
                      plainEnvironment(folder.path()),
                      folder.path() / "log"});
    const auto line = terminal.nextLine();
    ASSERT_TRUE(line.has_value());
    EXPECT_TRUE(KernelProcessReader().read(std::stoi(*line)).onTerminal);
}

TEST(KernelProcessReader, MissingProcessHasNoProperties) {
    EXPECT_EQ(KernelProcessReader().read(999'999'999), ProcessFacts{});
    EXPECT_EQ(KernelProcessReader().read(-1), ProcessFacts{});
}

} // namespace
} // namespace glidemap
