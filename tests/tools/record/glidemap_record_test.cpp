// Runs the built program as a shell does, with a driver that performs its own gestures.

#include "kit/temporary_folder.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace glidemap::record {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

constexpr int patience = 120'000; // milliseconds, enough for a busy machine

constexpr const char* swipeRecording =
    "{\"glidemap-recording\":1,\"device\":\"Scripted \\\"Pad\\\"\"}\n"
    "{\"t\":100.000000,\"touches\":[[1,0.125,0.5,3],[2,0.25,0.5,3],[3,0.375,0.5,3]]}\n"
    "{\"t\":100.031250,\"touches\":[[1,0.1875,0.5,4],[2,0.3125,0.5,4],[3,0.4375,0.5,4]]}\n"
    "{\"t\":100.062500,\"touches\":[[1,0.25,0.5,4],[2,0.375,0.5,4],[3,0.5,0.5,4]]}\n"
    "{\"t\":100.093750,\"touches\":[[1,0.3125,0.5,4],[2,0.4375,0.5,4],[3,0.5625,0.5,4]]}\n"
    "{\"t\":100.125000,\"touches\":[[1,0.375,0.5,4],[2,0.5,0.5,4],[3,0.625,0.5,4]]}\n"
    "{\"t\":100.156250,\"touches\":[[1,0.375,0.5,7],[2,0.5,0.5,7],[3,0.625,0.5,7]]}\n"
    "{\"t\":100.187500,\"button\":0,\"down\":true}\n";

class Stream {
public:
    Stream() {
        if (pipe2(ends, O_CLOEXEC) != 0) {
            std::abort();
        }
    }
    ~Stream() {
        close(ends[0]);
        closeWriter();
    }
    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;

    int writer() const { return ends[1]; }
    void closeWriter() {
        if (ends[1] >= 0) {
            close(ends[1]);
        }
        ends[1] = -1;
    }

    // Reads until the text appears, or until the end if `wanted` is empty.
    bool readUntil(const std::string& wanted) {
        while (wanted.empty() || text.find(wanted) == std::string::npos) {
            pollfd ready{ends[0], POLLIN, 0};
            char buffer[4096];
            const bool isReady = poll(&ready, 1, patience) > 0;
            const ssize_t count = isReady ? read(ends[0], buffer, sizeof buffer) : -1;
            if (count <= 0) {
                return count == 0 && wanted.empty();
            }
            text.append(buffer, static_cast<std::size_t>(count));
        }
        return true;
    }

    std::string text;

private:
    int ends[2] = {-1, -1};
};

class RecordProgram {
public:
    RecordProgram(const std::vector<std::string>& arguments, int touchpads, int unreadable,
                  const std::string& driver = GLIDEMAP_SCRIPTED_DRIVER) {
        setenv("GLIDEMAP_TOUCH_DRIVER", driver.c_str(), 1);
        setenv("GLIDEMAP_SCRIPTED_TOUCHPADS", std::to_string(touchpads).c_str(), 1);
        setenv("GLIDEMAP_SCRIPTED_UNREADABLE", std::to_string(unreadable).c_str(), 1);
        std::vector<std::string> words = {GLIDEMAP_RECORD_PROGRAM};
        words.insert(words.end(), arguments.begin(), arguments.end());
        std::vector<char*> pointers;
        for (std::string& word : words) {
            pointers.push_back(word.data());
        }
        pointers.push_back(nullptr);
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, output.writer(), STDOUT_FILENO);
        posix_spawn_file_actions_adddup2(&actions, errors.writer(), STDERR_FILENO);
        EXPECT_EQ(
            posix_spawn(&process, words[0].c_str(), &actions, nullptr, pointers.data(), environ),
            0);
        posix_spawn_file_actions_destroy(&actions);
        output.closeWriter();
        errors.closeWriter();
    }

    ~RecordProgram() {
        if (process > 0) {
            kill(process, SIGKILL);
            waitpid(process, nullptr, 0);
        }
    }

    void interrupt(int signal = SIGINT) const { kill(process, signal); }

    // Returns the exit status after reading both outputs to their ends.
    int end() {
        EXPECT_TRUE(output.readUntil(""));
        EXPECT_TRUE(errors.readUntil(""));
        int status = 0;
        waitpid(process, &status, 0);
        process = -1;
        return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    }

    Stream output;
    Stream errors;

private:
    pid_t process = -1;
};

class GlidemapRecord : public testing::Test {
protected:
    const test::TemporaryFolder temporary;
    const std::filesystem::path folder = temporary.path();
    const std::string file = folder / "touch.jsonl";
};

TEST_F(GlidemapRecord, WritesAFileAndPrintsGesturesToStandardOutput) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        RecordProgram program({"-o", file}, 1, 0);
        EXPECT_TRUE(program.output.readUntil("threeFingerSwipeRight"));
        program.interrupt(signal);
        EXPECT_EQ(program.end(), 0);
        EXPECT_EQ(test::contentOf(file), swipeRecording);
        EXPECT_THAT(program.output.text, HasSubstr("Three-Finger Swipe Right\n"));
        EXPECT_THAT(program.errors.text, StartsWith("Recording Scripted \"Pad\""));
    }
}

TEST_F(GlidemapRecord, WritesToStandardOutputWithoutAFileArgument) {
    RecordProgram program({}, 1, 0);
    EXPECT_TRUE(program.errors.readUntil("threeFingerSwipeRight"));
    program.interrupt();
    EXPECT_EQ(program.end(), 0);
    EXPECT_EQ(program.output.text, swipeRecording);
}

TEST_F(GlidemapRecord, RecordsAllTouchpadsAndWritesTheirNames) {
    RecordProgram program({}, 2, 0);
    EXPECT_TRUE(program.output.readUntil("\"button\":0"));
    program.interrupt();
    EXPECT_EQ(program.end(), 0);
    EXPECT_THAT(program.output.text, HasSubstr(R"("device":"Scripted \"Pad\", Scripted \"Pad\"")"));
    EXPECT_EQ(std::ranges::count(program.output.text, '\n'), 1 + 2 * 7);
}

TEST_F(GlidemapRecord, WithoutATouchpadPrintsAnErrorAndKeepsTheExistingFile) {
    std::ofstream(file) << "precious";
    RecordProgram program({"-o", file}, 0, 0);
    EXPECT_EQ(program.end(), 1);
    EXPECT_THAT(program.errors.text, StartsWith("glidemap-record: no touchpad found\n"));
    EXPECT_EQ(test::contentOf(file), "precious");
}

TEST_F(GlidemapRecord, ExplainsHowToGrantMissingPermission) {
    RecordProgram program({}, 0, 1);
    EXPECT_EQ(program.end(), 1);
    EXPECT_EQ(program.output.text, "");
    EXPECT_THAT(program.errors.text, AllOf(HasSubstr("no permission"), HasSubstr("udev")));
}

TEST_F(GlidemapRecord, PrintsThatTheDriverCannotBeUsed) {
    RecordProgram program({}, 1, 0, "/no/such/driver.so");
    EXPECT_EQ(program.end(), 1);
    EXPECT_THAT(program.errors.text, AllOf(HasSubstr("the touch driver cannot be used"),
                                           HasSubstr("/no/such/driver.so")));
}

TEST_F(GlidemapRecord, PrintsTheNameOfAFileThatCannotBeCreated) {
    const std::string path = folder / "no such folder" / "touch.jsonl";
    RecordProgram program({"-o", path}, 1, 0);
    EXPECT_EQ(program.end(), 1);
    EXPECT_EQ(program.errors.text,
              "glidemap-record: cannot write " + path + ": No such file or directory\n");
}

TEST_F(GlidemapRecord, ExitsWithAMessageOnAFullDisk) {
    RecordProgram program({"-o", "/dev/full"}, 1, 0);
    EXPECT_EQ(program.end(), 1);
    EXPECT_THAT(program.errors.text,
                HasSubstr("glidemap-record: cannot write /dev/full: No space left on device\n"));
}

TEST_F(GlidemapRecord, PrintsHelpToStandardOutput) {
    RecordProgram program({"--help"}, 0, 0);
    EXPECT_EQ(program.end(), 0);
    EXPECT_THAT(program.output.text, StartsWith("Usage: glidemap-record [-o FILE]\n"));
    EXPECT_EQ(program.errors.text, "");
}

TEST_F(GlidemapRecord, RejectsAnInvalidCommandLine) {
    RecordProgram program({"--fast"}, 1, 0);
    EXPECT_EQ(program.end(), 2);
    EXPECT_EQ(program.output.text, "");
    EXPECT_THAT(program.errors.text,
                StartsWith("glidemap-record: unknown argument '--fast'\nUsage: "));
}

} // namespace
} // namespace glidemap::record
