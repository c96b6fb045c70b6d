#include "desktops/application_folder.h"
#include "desktops/launch_reports.h"
#include "desktops/scoped_environment.h"
#include "platform/linux/desktop/detached_process.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace glidemap {
namespace {

using test::ScopedEnvironment;

class DetachedProcessTest : public testing::Test {
protected:
    // Returns a script that writes the command's output to the pipe.
    std::string reporting(const std::string& command) const {
        return folder.script("detached", "{ " + command + "; } >" + pipe.string() + "\n");
    }

    static void expectNoProcessToWaitFor() {
        siginfo_t ended{};
        waitid(P_ALL, 0, &ended, WEXITED | WNOHANG | WNOWAIT | __WALL);
        EXPECT_EQ(ended.si_pid, 0);
    }

    ApplicationFolder& folder = ApplicationFolder::instance();
    std::filesystem::path pipe = folder.path() / "detached-reports";
    LaunchReports reports{pipe};
};

TEST_F(DetachedProcessTest, ProcessHasExactlyTheGivenArgumentsAndEnvironment) {
    const auto started =
        startDetached({{reporting("echo \"$#:$1:$2\"; cat /proc/$$/environ | tr '\\0' ' '; echo"),
                        "two words", ""},
                       {"FIRST=1", "SECOND=a b"}});
    EXPECT_EQ(started.error, 0);
    EXPECT_EQ(reports.nextLine(), "2:two words:");
    EXPECT_EQ(reports.nextLine(), "FIRST=1 SECOND=a b ");
}

TEST_F(DetachedProcessTest, SetsTheRequestedVariableToTheProcessID) {
    DetachedCommand command{{reporting("echo $NUMBER $$ $0")}, {"NUMBERS=no"}};
    command.processVariable = "NUMBER";
    const auto started = startDetached(command);
    const std::string number = std::to_string(started.identifier);
    EXPECT_THAT(reports.nextLine(), testing::StartsWith(number + " " + number + " "));
}

TEST_F(DetachedProcessTest, RunsInTheGivenFolder) {
    const auto work = folder.path() / "a folder";
    std::filesystem::create_directories(work);
    startDetached({{reporting("pwd")}, {}, work.string()});
    EXPECT_EQ(reports.nextLine(), work.string());
    startDetached({{reporting("pwd")}, {}});
    EXPECT_EQ(reports.nextLine(), std::filesystem::current_path().string());
    std::filesystem::remove(work);
    EXPECT_EQ(startDetached({{reporting("pwd")}, {}, work.string()}).error, ENOENT);
}

TEST_F(DetachedProcessTest, ProcessInheritsNoExtraDescriptorAndHasEmptyStandardInput) {
    rlimit limit{};
    getrlimit(RLIMIT_NOFILE, &limit);
    const int null = open("/dev/null", O_RDONLY | O_CLOEXEC);
    const int low = dup(null);
    const int high = fcntl(null, F_DUPFD, static_cast<int>(limit.rlim_cur) - 1);
    startDetached({{"/bin/sh", "-c",
                    "{ for one in /proc/$$/fd/*; do echo -n \"${one##*/} \"; done; echo; cat; "
                    "readlink /proc/$$/fd/0; } >" +
                        pipe.string()},
                   {}});
    std::istringstream descriptors(reports.nextLine());
    for (int one = 0; descriptors >> one;) {
        EXPECT_NE(one, low);
        EXPECT_NE(one, high);
    }
    EXPECT_EQ(reports.nextLine(), "/dev/null");
    close(high);
    close(low);
    close(null);
}

TEST_F(DetachedProcessTest, ProcessNeitherBlocksNorIgnoresSignals) {
    sigset_t blocked;
    sigset_t before;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &blocked, &before);
    const auto earlier = std::signal(SIGHUP, SIG_IGN);
    startDetached(
        {{"/bin/sh", "-c", "grep -E 'Sig(Blk|Ign)' /proc/self/status >" + pipe.string()}, {}});
    EXPECT_EQ(reports.nextLine(), "SigBlk:\t0000000000000000");
    EXPECT_EQ(reports.nextLine(), "SigIgn:\t0000000000000000");

    sigset_t now;
    pthread_sigmask(SIG_SETMASK, nullptr, &now);
    EXPECT_EQ(sigismember(&now, SIGTERM), 1);
    EXPECT_EQ(sigismember(&now, SIGINT), sigismember(&before, SIGINT));
    EXPECT_EQ(std::signal(SIGHUP, earlier), SIG_IGN); // the test's own handlers are unchanged
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

TEST_F(DetachedProcessTest, FindsTheProgramInPATH) {
    folder.script("found-by-name", "echo found >" + pipe.string() + "\n");
    const char* const path = getenv("PATH");
    const ScopedEnvironment here({{"PATH", std::string(path) + ":" + folder.path().string()}});
    EXPECT_EQ(startDetached({{"found-by-name"}, {}}).error, 0);
    EXPECT_EQ(reports.nextLine(), "found");
}

TEST_F(DetachedProcessTest, ScriptWithoutAnInterpreterLineRuns) {
    const auto script = folder.path() / "plain";
    std::ofstream(script) << "echo \"$1\" >" << pipe.string() << "\n";
    std::filesystem::permissions(script, std::filesystem::perms::owner_all);
    EXPECT_EQ(startDetached({{script.string(), "argument"}, {}}).error, 0);
    EXPECT_EQ(reports.nextLine(), "argument");
}

TEST_F(DetachedProcessTest, InvalidProgramReturnsAnErrorAndLeavesNoProcess) {
    const auto text = folder.path() / "text";
    std::ofstream(text) << "no program";
    EXPECT_EQ(startDetached({{}, {}}).error, EINVAL);
    EXPECT_EQ(startDetached({{"/nowhere/at/all"}, {}}).error, ENOENT);
    EXPECT_EQ(startDetached({{"no-such-program-anywhere"}, {}}).error, ENOENT);
    EXPECT_EQ(startDetached({{text.string()}, {}}).error, EACCES);
    const auto refused = startDetached({{folder.path().string()}, {}});
    EXPECT_EQ(refused.error, EACCES);
    EXPECT_EQ(refused.identifier, -1);
    expectNoProcessToWaitFor();
}

TEST_F(DetachedProcessTest, ExitedProcessLeavesNoChildToWaitFor) {
    for (int count = 0; count < 20; ++count) {
        startDetached({{reporting("echo done")}, {}});
        EXPECT_EQ(reports.nextLine(), "done");
    }
    expectNoProcessToWaitFor();
}

TEST_F(DetachedProcessTest, ManyThreadsCanStartProcessesConcurrently) {
    constexpr int each = 25;
    std::vector<std::thread> threads;
    for (int number = 0; number < 4; ++number) {
        threads.emplace_back([this] {
            for (int count = 0; count < each; ++count) {
                EXPECT_EQ(
                    startDetached({{"/bin/sh", "-c", "echo ran >" + pipe.string()}, {}}).error, 0);
            }
        });
    }
    for (int count = 0; count < 4 * each; ++count) {
        EXPECT_EQ(reports.nextLine(), "ran");
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    expectNoProcessToWaitFor();
}

// Acts as the journal and accepts a stream.
class FakeJournal {
public:
    explicit FakeJournal(const std::string& path) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        path.copy(address.sun_path, sizeof(address.sun_path) - 1);
        EXPECT_EQ(bind(listening, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
        EXPECT_EQ(listen(listening, 1), 0);
    }
    FakeJournal(const FakeJournal&) = delete;
    FakeJournal& operator=(const FakeJournal&) = delete;
    ~FakeJournal() { close(listening); }

    // Returns the complete output of the first program, and sets `process` to the program's id.
    std::string read(pid_t& process) const {
        const int stream = accept(listening, nullptr, nullptr);
        ucred other{};
        socklen_t size = sizeof(other);
        getsockopt(stream, SOL_SOCKET, SO_PEERCRED, &other, &size);
        process = other.pid;
        std::string text;
        std::array<char, 256> block{};
        for (ssize_t got = 0; (got = ::read(stream, block.data(), block.size())) > 0;) {
            text.append(block.data(), static_cast<std::size_t>(got));
        }
        close(stream);
        return text;
    }

private:
    int listening = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
};

TEST_F(DetachedProcessTest, JournalMessagesHaveTheProgramName) {
    const std::string socket = folder.path() / "journal";
    const FakeJournal journal(socket);
    DetachedCommand command{{"/bin/sh", "-c", "echo output; echo complaint >&2"}, {}};
    command.journal = {socket, "tool", true, true};
    const auto started = startDetached(command);
    pid_t writer = 0;
    EXPECT_EQ(journal.read(writer), "tool\n\n6\n0\n0\n0\n0\noutput\ncomplaint\n");
    EXPECT_EQ(writer, started.identifier);
    std::filesystem::remove(socket);
}

TEST_F(DetachedProcessTest, StartsTheProcessEvenIfTheJournalSocketIsMissing) {
    DetachedCommand command{{"/bin/sh", "-c", "echo ran >" + pipe.string()}, {}};
    command.journal = {folder.path() / "no-journal", "tool", true, true};
    EXPECT_EQ(startDetached(command).error, 0);
    EXPECT_EQ(reports.nextLine(), "ran");
}

TEST_F(DetachedProcessTest, UsesTheJournalOnlyIfTheJournalVariableMatchesStandardError) {
    EXPECT_EQ(journalStreamFor("tool").socket, "");
    struct stat facts {};
    fstat(STDERR_FILENO, &facts);
    const std::string stream = std::to_string(facts.st_dev) + ":" + std::to_string(facts.st_ino);
    {
        const ScopedEnvironment here({{"JOURNAL_STREAM", stream}});
        const JournalStream journal = journalStreamFor("tool");
        EXPECT_EQ(journal.socket, "/run/systemd/journal/stdout");
        EXPECT_EQ(journal.name, "tool");
        EXPECT_TRUE(journal.errorOutput);
    }
    const ScopedEnvironment here({{"JOURNAL_STREAM", "1:" + std::to_string(facts.st_ino)}});
    EXPECT_EQ(journalStreamFor("tool").socket, "");
}

} // namespace
} // namespace glidemap
