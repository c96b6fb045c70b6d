// A program that is killed while it changes the list leaves the list as it was before or after the
// change, whole: shown by killing one at every system call of a change, and at a random moment of one,
// a few thousand times.
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

// Recognised by the key code, and of another length than its neighbours.
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

// None if it is not one of these lists, whole.
std::optional<unsigned> numberOf(const BindingList& list) {
    if (list.empty() || !std::holds_alternative<KeyShortcut>(list.front().action)) {
        return std::nullopt;
    }
    const auto number = static_cast<unsigned>(std::get<KeyShortcut>(list.front().action).modifiers);
    return list == listNumber(number) ? std::optional(number) : std::nullopt;
}

// A process that makes one change after the other and says so after each of them. It ends with the
// test if the test fails to end it: there is nobody to say it to any more.
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

    // Answers how many changes it has made.
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
// A process that makes one change and stops wherever it enters a system call or returns from one, so
// that it can be killed there however fast the machine is.
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

    // Goes on to the next stop. Returns false if it has ended before.
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

// With a sanitizer, starting a process takes so long that there would be nothing else to do.
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

class AKilledWriter : public testing::TestWithParam<Row> {
protected:
    AKilledWriter() : support(GetParam().folder) {}

    // How long a change takes on this machine, today.
    Clock::duration timeOfAChange() {
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

    // A random moment of a change, or, aimed, one at which the writer is seen writing. On a busy
    // machine it may never be seen, since it does not run while this looks: nothing depends on it.
    void waitForTheMoment(bool aimed) {
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
    Clock::duration change = timeOfAChange();
    std::mt19937 random{20240607};
};

TEST_P(AKilledWriter, LeavesTheListAsItWasBeforeOrAfterTheChange) {
    unsigned number = 0;
    int killedWhileWriting = 0;
    int killedBeforeSayingSo = 0;
    for (int round = 0; round < GetParam().rounds; ++round) {
        Writer writer(store, number + 1);
        writer.waitForChanges(static_cast<unsigned>(1 + random() % 3));
        waitForTheMoment(round % 2 == 0);
        const unsigned before = number + writer.kill();
        killedWhileWriting += writerIsWriting() ? 1 : 0;

        const auto found = numberOf(*support.launch().bindings());
        ASSERT_TRUE(found) << "round " << round << ":\n" << contentOf(support.file());
        ASSERT_TRUE(found == before || found == before + 1) << before << ", " << *found;
        killedBeforeSayingSo += found == before + 1 ? 1 : 0;
        number = *found;
    }
    std::cout << GetParam().rounds << " writers killed, " << killedWhileWriting
              << " while writing, " << killedBeforeSayingSo << " just after\n";
    store.setBindings(listNumber(1));
    EXPECT_EQ(namesIn(support.folder()), std::vector<std::string>{"bindings.json"});
}

#if defined(GLIDEMAP_STOPS_AT_SYSTEM_CALLS)
TEST_P(AKilledWriter, LeavesAWholeListAtEverySystemCallOfAChange) {
    unsigned number = 0;
    int killedWhileWriting = 0;
    int killedAfterwards = 0;
    bool isWhole = false; // the change that was made in the last round
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
        killedAfterwards += found == number + 1 && !isWhole ? 1 : 0;
        number = *found;
    }
    EXPECT_GT(killedWhileWriting, 0);
    EXPECT_GT(killedAfterwards, 0);
    store.setBindings(listNumber(number + 2));
    EXPECT_EQ(namesIn(support.folder()), std::vector<std::string>{"bindings.json"});
}

#endif

// On a disk most of a change is waiting until it is flushed; in memory most of it is the work. Not
// every system has a folder in memory.
std::vector<Row> folders() {
    constexpr const char* memory = "/dev/shm";
    std::vector<Row> rows = {{"aFileOnDisk", "", 500 / slowness}};
    if (std::filesystem::is_directory(memory)) {
        rows.push_back({"aFileInMemory", memory, 2'500 / slowness});
    }
    return rows;
}

INSTANTIATE_TEST_SUITE_P(Of, AKilledWriter, testing::ValuesIn(folders()),
                         [](const auto& row) { return row.param.name; });

} // namespace
} // namespace glidemap
