// A program that is killed during a change leaves either the complete old list or the complete new
// list. The tests kill a writer at every system call of a change, and a few thousand times at a
// random moment.
#include "binding_printers.h"
#include "bindings/binding_store.h"
#include "support_folder.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <iostream>
#include <random>
#include <string>
#include <vector>
#if defined(GLIDEMAP_STOPS_AT_SYSTEM_CALLS)
#include <sys/ptrace.h>
#endif

namespace glidemap {
namespace {

using Clock = std::chrono::steady_clock;

constexpr unsigned bindingsInAList = 2;

// Returns the list with this number. The shortcut identifies the list. Lists with consecutive
// numbers differ in length.
BindingList listNumber(unsigned number) {
    BindingList list(bindingsInAList + number % 3,
                     {.gesture = GestureType::twoFingerTap,
                      .action = KeyShortcut{static_cast<std::uint16_t>(number), number},
                      .scope = AppScope{"org.example.App", std::string(100, 'n')}});
    for (GestureBinding& binding : list) {
        binding.id = *Uuid::parse("00000000-0000-4000-8000-000000000000");
    }
    return list;
}

// Returns the number of this list, or nullopt if the list is incomplete or mixed.
std::optional<unsigned> numberOf(const BindingList& list) {
    if (list.empty() || !std::holds_alternative<KeyShortcut>(list.front().action)) {
        return std::nullopt;
    }
    const auto number = static_cast<unsigned>(std::get<KeyShortcut>(list.front().action).modifiers);
    return list == listNumber(number) ? std::optional(number) : std::nullopt;
}

// A process that makes one change after another and reports each one through a pipe. When the test
// exits, the process ends, too, because the pipe then has no reader.
class Writer {
public:
    Writer(BindingStore& store, unsigned firstNumber) {
        int ends[2];
        EXPECT_EQ(pipe(ends), 0);
        process = fork();
        if (process == 0) {
            close(ends[0]);
            change(store, firstNumber, ends[1]);
        }
        close(ends[1]);
        progress = ends[0];
    }
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;
    ~Writer() { close(progress); }

    void waitForChanges(unsigned count) {
        for (; count > 0; --count) {
            ASSERT_TRUE(readOne()) << "the writer is gone";
        }
    }

    // Kills the process and returns the number of changes that it has made.
    unsigned kill() {
        ::kill(process, SIGKILL);
        int status = 0;
        EXPECT_EQ(waitpid(process, &status, 0), process);
        EXPECT_TRUE(WIFSIGNALED(status)) << "it was still at work";
        while (readOne()) {
        }
        return changes;
    }

private:
    [[noreturn]] static void change(BindingStore& store, unsigned number, int said) {
        for (;; ++number) {
            store.setBindings(listNumber(number));
            if (write(said, "", 1) != 1) {
                _exit(1);
            }
        }
    }

    bool readOne() {
        char byte = 0;
        const bool one = read(progress, &byte, 1) == 1;
        changes += one ? 1 : 0;
        return one;
    }

    pid_t process = -1;
    int progress = -1;
    unsigned changes = 0;
};

#if defined(GLIDEMAP_STOPS_AT_SYSTEM_CALLS)
// A process that makes one change and stops at the entry and exit of every system call. The test
// can kill it at each stop, regardless of the speed of the machine.
class SteppedWriter {
public:
    SteppedWriter(BindingStore& store, unsigned number) {
        process = fork();
        if (process == 0) {
            ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
            raise(SIGSTOP);
            store.setBindings(listNumber(number));
            _exit(0);
        }
        EXPECT_TRUE(waitForStop()) << "a program may not trace its own child here";
    }
    SteppedWriter(const SteppedWriter&) = delete;
    SteppedWriter& operator=(const SteppedWriter&) = delete;
    ~SteppedWriter() {
        if (!ended) {
            ::kill(process, SIGKILL);
            waitForStop();
        }
    }

    // Continues to the next stop. Returns false if the process has exited.
    bool step() {
        EXPECT_EQ(ptrace(PTRACE_SYSCALL, process, nullptr, nullptr), 0);
        return waitForStop();
    }

private:
    bool waitForStop() {
        int status = 0;
        EXPECT_EQ(waitpid(process, &status, 0), process);
        ended = !WIFSTOPPED(status);
        return !ended;
    }

    pid_t process = -1;
    bool ended = false;
};
#endif

// With a sanitizer, starting a process is slow, so the tests start fewer of them.
#if defined(GLIDEMAP_SANITIZED)
constexpr int slowness = 10;
#else
constexpr int slowness = 1;
#endif

struct Row {
    const char* name;
    const char* folder;
    int rounds;
};

std::ostream& operator<<(std::ostream& stream, const Row& row) {
    return stream << row.name;
}

class KilledWriterTest : public testing::TestWithParam<Row> {
protected:
    KilledWriterTest() : support(GetParam().folder) {}

    // Measures the duration of a change on this machine.
    Clock::duration changeDuration() {
        constexpr int changes = 20;
        const auto start = Clock::now();
        for (int count = 0; count < changes; ++count) {
            store.setBindings(listNumber(0));
        }
        return (Clock::now() - start) / changes;
    }

    static void spinUntil(Clock::time_point moment) {
        while (Clock::now() < moment) {
        }
    }

    // Waits for a random time or, if `aimed`, until shortly after a write has begun. On a busy
    // machine this thread may miss the write, because the writer does not run while this thread
    // checks. The test passes in either case.
    void waitForKillTime(bool aimed) {
        const auto part = [this](double most) {
            std::uniform_real_distribution<double> distribution(0, most);
            return std::chrono::duration_cast<Clock::duration>(change * distribution(random));
        };
        const auto enough = Clock::now() + 4 * change;
        while (aimed && !writerIsWriting() && Clock::now() < enough) {
        }
        spinUntil(Clock::now() + part(aimed ? 0.2 : 2));
    }

    bool writerIsWriting() const { return access(temporaryFile.c_str(), F_OK) == 0; }

    SupportFolder support;
    std::filesystem::path temporaryFile = support.folder() / ".bindings.json.saving";
    BindingStore store = support.launch();
    Clock::duration change = changeDuration();
    std::mt19937 random{20240607};
};

TEST_P(KilledWriterTest, LeavesTheCompleteOldOrNewList) {
    unsigned number = 0;
    int killedWhileWriting = 0;
    int killedBeforeReporting = 0;
    for (int round = 0; round < GetParam().rounds; ++round) {
        Writer writer(store, number + 1);
        writer.waitForChanges(static_cast<unsigned>(1 + random() % 3));
        waitForKillTime(round % 2 == 0);
        const unsigned before = number + writer.kill();
        killedWhileWriting += writerIsWriting() ? 1 : 0;

        const auto found = numberOf(*support.launch().bindings());
        ASSERT_TRUE(found) << "round " << round << ":\n" << contentOf(support.file());
        ASSERT_TRUE(found == before || found == before + 1) << before << ", " << *found;
        killedBeforeReporting += found == before + 1 ? 1 : 0;
        number = *found;
    }
    std::cout << GetParam().rounds << " writers killed, " << killedWhileWriting
              << " while writing, " << killedBeforeReporting << " just after\n";
    store.setBindings(listNumber(1));
    EXPECT_EQ(namesIn(support.folder()), std::vector<std::string>{"bindings.json"});
}

#if defined(GLIDEMAP_STOPS_AT_SYSTEM_CALLS)
TEST_P(KilledWriterTest, KillAtAnySystemCallLeavesACompleteList) {
    unsigned number = 0;
    int killedWhileWriting = 0;
    int killedAfterChange = 0;
    bool isWhole = false; // true after a round in which the writer completed its change
    for (int stops = 1; !isWhole; ++stops) {
        {
            SteppedWriter writer(store, number + 1);
            for (int stop = 0; stop < stops && !isWhole; ++stop) {
                isWhole = !writer.step();
            }
            killedWhileWriting += writerIsWriting() ? 1 : 0;
        }
        const auto found = numberOf(*support.launch().bindings());
        ASSERT_TRUE(found) << "stop " << stops << ":\n" << contentOf(support.file());
        ASSERT_TRUE(found == number || found == number + 1) << number << ", " << *found;
        ASSERT_TRUE(!isWhole || found == number + 1) << "the change was lost";
        killedAfterChange += found == number + 1 && !isWhole ? 1 : 0;
        number = *found;
    }
    EXPECT_GT(killedWhileWriting, 0);
    EXPECT_GT(killedAfterChange, 0);
    store.setBindings(listNumber(number + 2));
    EXPECT_EQ(namesIn(support.folder()), std::vector<std::string>{"bindings.json"});
}

#endif

// On a disk, a change mostly waits for the flush; in memory, it mostly computes. Not every system
// has a folder in memory.
std::vector<Row> folders() {
    constexpr const char* memory = "/dev/shm";
    std::vector<Row> rows = {{"aFileOnDisk", "", 500 / slowness}};
    if (std::filesystem::is_directory(memory)) {
        rows.push_back({"aFileInMemory", memory, 2'500 / slowness});
    }
    return rows;
}

INSTANTIATE_TEST_SUITE_P(Of, KilledWriterTest, testing::ValuesIn(folders()),
                         [](const auto& row) { return row.param.name; });

} // namespace
} // namespace glidemap
