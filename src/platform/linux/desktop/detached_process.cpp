#include "platform/linux/desktop/detached_process.h"

#include <fcntl.h>
#include <sched.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <memory>

namespace glidemap {

namespace {

constexpr std::size_t maxIdentifierSize = 20; // in characters: the digits and the final null
constexpr std::size_t stackSize = std::size_t{64} << 10U;

// All data that the children need. The parent prepares it, because the children share the parent's
// memory and must not allocate or lock.
struct Plan {
    std::vector<char*> arguments;
    std::vector<char*> environment;
    const char* folder = nullptr;
    char* identifierDigits = nullptr;
    const JournalStream* journal = nullptr;
    sockaddr_un journalAddress{};
    std::string journalHeader;
    std::byte* innerStack = nullptr;
    DetachedProcess result;
};

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts) {
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

void writeDigits(pid_t number, char* to) {
    std::array<char, maxIdentifierSize> reversed{};
    std::size_t count = 0;
    for (; number > 0; number /= 10) {
        reversed[count++] = static_cast<char>('0' + number % 10);
    }
    while (count > 0) {
        *to++ = reversed[--count];
    }
    *to = '\0';
}

void forgetSignalHandlers() {
    struct sigaction usual = {};
    usual.sa_handler = SIG_DFL;
    for (int signal = 1; signal < NSIG; ++signal) {
        // This call fails for SIGKILL and SIGSTOP, which cannot have a handler.
        sigaction(signal, &usual, nullptr);
    }
}

// Kernels before 5.9 and some sandboxes do not provide close_range().
void closeDescriptorsFrom(unsigned first) {
    if (syscall(SYS_close_range, first, ~0U, 0U) == 0) {
        return;
    }
    rlimit limit{};
    getrlimit(RLIMIT_NOFILE, &limit);
    for (rlim_t descriptor = first; descriptor < limit.rlim_cur; ++descriptor) {
        close(static_cast<int>(descriptor));
    }
}

void readNothing() {
    const int nothing = open("/dev/null", O_RDONLY);
    if (nothing > STDIN_FILENO) {
        dup2(nothing, STDIN_FILENO);
    }
}

// Must run in the child, because the journal records the process that connects. If there is no
// journal, the child keeps our streams.
void writeToJournal(const Plan& plan) {
    const int stream = socket(AF_UNIX, SOCK_STREAM, 0);
    if (stream < 0) {
        return;
    }
    const auto* const address = reinterpret_cast<const sockaddr*>(&plan.journalAddress);
    const auto size = static_cast<ssize_t>(plan.journalHeader.size());
    if (connect(stream, address, sizeof(plan.journalAddress)) != 0 ||
        write(stream, plan.journalHeader.data(), plan.journalHeader.size()) != size) {
        return;
    }
    if (plan.journal->output) {
        dup2(stream, STDOUT_FILENO);
    }
    if (plan.journal->errorOutput) {
        dup2(stream, STDERR_FILENO);
    }
}

// Returns only if the program cannot be executed.
void becomeProgram(const Plan& plan) {
    setsid();
    forgetSignalHandlers();
    readNothing();
    if (plan.journal != nullptr) {
        writeToJournal(plan);
    }
    closeDescriptorsFrom(STDERR_FILENO + 1);
    if (plan.folder != nullptr && chdir(plan.folder) != 0) {
        return;
    }
    if (plan.identifierDigits != nullptr) {
        writeDigits(getpid(), plan.identifierDigits);
    }
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr); // NOLINT(concurrency-mt-unsafe): the only thread
    execvpe(plan.arguments.front(), plan.arguments.data(), plan.environment.data());
}

// The children run on separate stacks, which the address sanitizer would mistake for the thread's
// stack.
#define GLIDEMAP_ON_A_STACK_OF_ITS_OWN __attribute__((no_sanitize("address")))

GLIDEMAP_ON_A_STACK_OF_ITS_OWN int innerChild(void* data) {
    auto* const plan = static_cast<Plan*>(data);
    becomeProgram(*plan);
    plan->result.error = errno;
    _exit(1); // NOLINT(concurrency-mt-unsafe): ends this process without exit handlers
}

// Exits immediately, so that init becomes the parent of the inner child.
GLIDEMAP_ON_A_STACK_OF_ITS_OWN int outerChild(void* data) {
    auto* const plan = static_cast<Plan*>(data);
    plan->result.identifier = clone(innerChild, plan->innerStack + stackSize,
                                    CLONE_VM | CLONE_VFORK | SIGCHLD, plan); // NOLINT
    if (plan->result.identifier < 0) {
        plan->result.error = errno;
    } else if (plan->result.error != 0) {
        waitpid(plan->result.identifier, nullptr, 0);
    }
    _exit(0);
}

// Blocks all signals, because our signal handlers must not run in a child that shares our memory.
class WithoutSignals {
public:
    WithoutSignals() {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &before);
    }
    WithoutSignals(const WithoutSignals&) = delete;
    WithoutSignals& operator=(const WithoutSignals&) = delete;
    ~WithoutSignals() { pthread_sigmask(SIG_SETMASK, &before, nullptr); }

private:
    sigset_t before{};
};

// The outer child sends no signal when it exits, so code elsewhere that waits for children does not
// notice it.
void runOuterChild(Plan& plan, std::byte* stack) {
    const pid_t outer = clone(outerChild, stack + stackSize, CLONE_VM | CLONE_VFORK, &plan);
    if (outer < 0) {
        plan.result.error = errno;
        return;
    }
    while (waitpid(outer, nullptr, __WALL) < 0 && errno == EINTR) {
    }
}

// Returns the header of a journal stream, with one value per line: identifier, unit, default
// priority, whether lines have priority prefixes, and three forwarding flags.
std::string journalHeaderOf(const JournalStream& journal) {
    constexpr const char* behindTheName = "\n\n6\n0\n0\n0\n0\n";
    return journal.name + behindTheName;
}

void planJournal(Plan& plan, const JournalStream& journal) {
    plan.journalAddress.sun_family = AF_UNIX;
    if (journal.socket.empty() || journal.socket.size() >= sizeof(plan.journalAddress.sun_path)) {
        return;
    }
    journal.socket.copy(plan.journalAddress.sun_path, journal.socket.size());
    plan.journalHeader = journalHeaderOf(journal);
    plan.journal = &journal;
}

bool isStream(int descriptor, const std::string& named) {
    struct stat facts {};
    return fstat(descriptor, &facts) == 0 &&
           named == std::to_string(facts.st_dev) + ":" + std::to_string(facts.st_ino);
}

} // namespace

JournalStream journalStreamFor(const std::string& name) {
    // NOLINTNEXTLINE(concurrency-mt-unsafe): no thread changes the environment
    const char* const named = std::getenv("JOURNAL_STREAM");
    const bool output = named != nullptr && isStream(STDOUT_FILENO, named);
    const bool errorOutput = named != nullptr && isStream(STDERR_FILENO, named);
    if (!output && !errorOutput) {
        return {};
    }
    return {"/run/systemd/journal/stdout", name, output, errorOutput};
}

DetachedProcess startDetached(const DetachedCommand& command) {
    if (command.words.empty()) {
        return {-1, EINVAL};
    }
    DetachedCommand own = command; // execvpe() needs non-const strings
    Plan plan;
    if (!own.processVariable.empty()) {
        std::string variable = own.processVariable + "=";
        const std::size_t digits = variable.size();
        variable.append(maxIdentifierSize, '\0');
        own.environment.push_back(std::move(variable));
        plan.identifierDigits = own.environment.back().data() + digits;
    }
    plan.arguments = pointersTo(own.words);
    plan.environment = pointersTo(own.environment);
    plan.folder = own.folder.empty() ? nullptr : own.folder.c_str();
    planJournal(plan, own.journal);
    // If a script has no "#!" line, execvpe() copies the argument list to the stack.
    const std::size_t spare = plan.arguments.size() * sizeof(char*);
    // NOLINTNEXTLINE(modernize-avoid-c-arrays): the size is known only here, and zeroing costs time
    const auto stacks = std::make_unique_for_overwrite<std::byte[]>(2 * stackSize + spare);
    plan.innerStack = stacks.get() + stackSize + spare;
    {
        const WithoutSignals guard;
        runOuterChild(plan, stacks.get());
    }
    if (plan.result.error != 0) {
        plan.result.identifier = -1;
    }
    return plan.result;
}

} // namespace glidemap
