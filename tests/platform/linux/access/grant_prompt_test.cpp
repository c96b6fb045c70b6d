// Tests the polkit prompt with shell scripts in place of pkexec.
#include "kit/patience.h"
#include "kit/temporary_folder.h"
#include "platform/linux/access/grant_prompt.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <future>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace glidemap {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> shell(const std::string& script) {
    return {"/bin/sh", "-c", script};
}

// Waits until the prompt ends. The prompt's thread may outlive the test, so it shares the promise.
class End {
public:
    std::function<void(int)> notify() const {
        return [reported = promise](int exitCode) {
            reported->set_value(exitCode);
        };
    }

    bool hasCome() { return future.wait_for(std::chrono::seconds(0)) == ready; }
    bool comes() { return future.wait_for(test::patience) == ready; }
    int exitCode() { return future.get(); }

private:
    static constexpr auto ready = std::future_status::ready;

    std::shared_ptr<std::promise<int>> promise = std::make_shared<std::promise<int>>();
    std::future<int> future = promise->get_future();
};

// Reads the text that a script writes to a pipe, until the script exits.
class Answer {
public:
    Answer() {
        // The write end has no close-on-exec flag, because the script writes to it by its number.
        EXPECT_EQ(pipe(ends.data()), 0);
        fcntl(ends[0], F_SETFD, FD_CLOEXEC);
    }
    Answer(const Answer&) = delete;
    Answer& operator=(const Answer&) = delete;
    ~Answer() { close(ends[0]); }

    std::string to(const std::string& command) const {
        return command + " >/proc/self/fd/" + std::to_string(ends[1]);
    }

    std::string read() {
        close(ends[1]);
        std::string text;
        char letter = 0;
        while (::read(ends[0], &letter, 1) == 1) {
            text += letter;
        }
        return text;
    }

private:
    std::array<int, 2> ends{};
};

// A per-user installation, below a folder to which other users can also write.
class OwnInstallation {
public:
    OwnInstallation() {
        folder.write("bin/glidemap", "");
        folder.write("libexec/glidemap/glidemap-grant-access", "");
    }

    fs::path program() const { return folder.path() / "bin/glidemap"; }
    fs::path grantAccess() const {
        return folder.path() / "libexec/glidemap/glidemap-grant-access";
    }

private:
    test::TemporaryFolder folder;
};

TEST(GrantPromptTest, NeverRunsAUserWritableProgramAsRoot) {
    const OwnInstallation own;
    const auto command = grantAccessCommand(own.program());
    EXPECT_TRUE(command.empty() || command[1].starts_with("/usr/")) << command[1];
    EXPECT_FALSE(isWritableOnlyByRoot(own.grantAccess()));
}

TEST(GrantPromptTest, DetectsWhetherOnlyRootCanWriteToAFile) {
    EXPECT_TRUE(isWritableOnlyByRoot(fs::canonical("/bin/sh")));
    EXPECT_TRUE(isWritableOnlyByRoot("/"));
    EXPECT_FALSE(isWritableOnlyByRoot("/tmp"));
    EXPECT_FALSE(isWritableOnlyByRoot("/nowhere/at/all"));
}

// Returns a path to which only root may write. The path is unique per process, because tests run at
// the same time.
fs::path folderOfRoot(const std::string& name) {
    return "/usr/local/glidemap-grant-prompt-" + name + "-" + std::to_string(getpid());
}

TEST(GrantPromptTest, FileInAFolderOfAnotherUserCountsAsWritableByOthers) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "only root may change the owner of files";
    }
    const fs::path folder = folderOfRoot("owner");
    fs::create_directories(folder / "libexec");
    const fs::path file = folder / "libexec/file";
    std::ofstream(file) << "";
    EXPECT_TRUE(isWritableOnlyByRoot(file));
    fs::permissions(file, fs::perms::all);
    EXPECT_FALSE(isWritableOnlyByRoot(file));
    fs::permissions(file, fs::perms::owner_all);
    EXPECT_EQ(chown(folder.c_str(), 65534, 65534), 0);
    EXPECT_FALSE(isWritableOnlyByRoot(file));
    fs::remove_all(folder);
}

TEST(GrantPromptTest, CommandRunsTheGrantProgramOfAnInstallationOwnedByRoot) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "only root may install for all users";
    }
    const fs::path folder = folderOfRoot("installation");
    fs::create_directories(folder / "libexec/glidemap");
    const fs::path file = folder / "libexec/glidemap/glidemap-grant-access";
    std::ofstream(file) << "";
    EXPECT_EQ(grantAccessCommand(folder / "bin/glidemap"),
              (std::vector<std::string>{"/usr/bin/pkexec", file}));
    fs::remove_all(folder);
}

TEST(GrantPromptTest, CommandRunsWithItsArguments) {
    Answer answer;
    End end;
    ASSERT_TRUE(startGrantPrompt({"/bin/sh", "-c", answer.to("echo \"$0 $1\""), "one", "two 2"},
                                 end.notify()));
    EXPECT_EQ(answer.read(), "one two 2\n");
    EXPECT_TRUE(end.comes());
}

TEST(GrantPromptTest, StartReturnsBeforeTheCommandExits) {
    std::array<int, 2> user{};
    ASSERT_EQ(pipe(user.data()), 0);
    fcntl(user[1], F_SETFD, FD_CLOEXEC);
    End end;
    // The script exits when it reads input, which the test sends after the call has returned.
    ASSERT_TRUE(startGrantPrompt(shell("read answer </proc/self/fd/" + std::to_string(user[0])),
                                 end.notify()));
    EXPECT_FALSE(end.hasCome());
    ASSERT_EQ(write(user[1], "yes\n", 4), 4);
    EXPECT_TRUE(end.comes());
    close(user[0]);
    close(user[1]);
}

TEST(GrantPromptTest, ReportsEveryExitCodeOnceAndLeavesNoProcess) {
    const std::pair<const char*, int> answers[] = {
        {"exit 0", 0}, {"exit 126", 126}, {"exit 127", notAsked}, {"kill -9 $$", notAsked}};
    for (const auto& [script, exitCode] : answers) {
        End end; // a second report would throw
        ASSERT_TRUE(startGrantPrompt(shell(script), end.notify()));
        ASSERT_TRUE(end.comes()) << script;
        EXPECT_EQ(end.exitCode(), exitCode) << script;
    }
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
}

TEST(GrantPromptTest, StartFailsWithoutACallbackIfTheProgramIsMissing) {
    bool isFinished = false;
    EXPECT_FALSE(
        startGrantPrompt({"/no/such/pkexec"}, [&](int /*exitCode*/) { isFinished = true; }));
    EXPECT_FALSE(startGrantPrompt({}, [&](int /*exitCode*/) { isFinished = true; }));
    EXPECT_FALSE(isFinished);
}

// A program that reads SIGTERM from a descriptor blocks the signal, but SIGTERM must still
// terminate pkexec.
TEST(GrantPromptTest, ChildHasNoBlockedSignals) {
    sigset_t blocked;
    sigset_t before;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &blocked, &before);
    Answer answer;
    End end;
    EXPECT_TRUE(startGrantPrompt(shell(answer.to("grep SigBlk /proc/self/status")), end.notify()));
    EXPECT_EQ(answer.read(), "SigBlk:\t0000000000000000\n");
    EXPECT_TRUE(end.comes());
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

} // namespace
} // namespace glidemap
