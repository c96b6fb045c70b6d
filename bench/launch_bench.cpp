// launch_bench [--desktop] [--launches N]: measures the time from the request to launch an
// application until the program's first instructions. Compares it with a bare process that starts
// the same program with posix_spawn. The two kinds of launches alternate.
//
// This process allocates as much memory as Glidemap uses with its window open, because forking a
// process costs time for each page. Without --desktop, windows are not tracked, so the figures
// exclude the search for a window to bring forward and the request for a launch token. --desktop
// includes both, on the desktop that the environment names.
#include "bench/samples.h"
#include "desktops/private_bus.h"
#include "kit/temporary_folder.h"
#include "platform/linux/applications/linux_workspace.h"
#include "platform/linux/desktop/desktop_thread.h"
#include "platform/linux/windows/desktop_backends.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

namespace glidemap::bench {

namespace {

namespace fs = std::filesystem;

constexpr const char* identifier = "launch-stamp";
constexpr std::size_t memoryOfTheProgram = std::size_t{42} << 20U;
constexpr int notMeasured = 10; // launches at the beginning, while the desktop is still connecting
constexpr useconds_t pauseBetween = 30'000; // until all threads sleep again, as before a gesture

std::int64_t nanosecondsNow() {
    return now().time_since_epoch() / std::chrono::nanoseconds(1);
}

// A named pipe. This process keeps both ends open, so that readers never see the end of the file.
class StampPipe {
public:
    explicit StampPipe(fs::path at) : path(std::move(at)) {
        mkfifo(path.c_str(), 0600);
        descriptor = open(path.c_str(), O_RDWR | O_CLOEXEC);
    }
    StampPipe(const StampPipe&) = delete;
    StampPipe& operator=(const StampPipe&) = delete;
    ~StampPipe() { close(descriptor); }

    struct Report {
        std::int64_t stamp = 0;
        std::int64_t hasToken = 0;
    };

    Report next() const {
        Report report;
        [[maybe_unused]] const auto size = read(descriptor, &report, sizeof(report));
        return report;
    }

    const fs::path path;

private:
    int descriptor = -1;
};

// Runs as the bare process: for each byte of its input, starts the program and writes the start
// time.
int startOnRequest(char* program, char* pipe) {
    std::array<char*, 3> arguments = {program, pipe, nullptr};
    for (char request = 0; read(STDIN_FILENO, &request, 1) == 1;) {
        const std::int64_t began = nanosecondsNow();
        pid_t process = 0;
        if (posix_spawn(&process, program, nullptr, nullptr, arguments.data(), environ) != 0) {
            return 1;
        }
        waitpid(process, nullptr, 0);
        [[maybe_unused]] const auto size = write(STDOUT_FILENO, &began, sizeof(began));
    }
    return 0;
}

class BareProcess {
public:
    BareProcess(const char* self, const fs::path& pipe) {
        std::array<int, 2> requests{};
        std::array<int, 2> replies{};
        if (pipe2(requests.data(), O_CLOEXEC) != 0 || pipe2(replies.data(), O_CLOEXEC) != 0) {
            return;
        }
        process = fork();
        if (process == 0) {
            dup2(requests[0], STDIN_FILENO);
            dup2(replies[1], STDOUT_FILENO);
            execl(self, self, "--bare", LAUNCH_STAMP, pipe.c_str(), nullptr);
            _exit(127);
        }
        close(requests[0]);
        close(replies[1]);
        requestPipe = requests[1];
        replyPipe = replies[0];
    }
    BareProcess(const BareProcess&) = delete;
    BareProcess& operator=(const BareProcess&) = delete;
    ~BareProcess() {
        close(requestPipe);
        close(replyPipe);
        waitpid(process, nullptr, 0);
    }

    // Makes the bare process start the program. Returns the time, measured in the bare process,
    // just before it did so.
    std::int64_t start() const {
        std::int64_t began = 0;
        [[maybe_unused]] auto size = write(requestPipe, "s", 1);
        size = read(replyPipe, &began, sizeof(began));
        return began;
    }

private:
    pid_t process = -1;
    int requestPipe = -1;
    int replyPipe = -1;
};

void installEntry(const fs::path& folder, const StampPipe& pipe) {
    fs::create_directories(folder / "applications");
    std::ofstream(folder / "applications" / (std::string(identifier) + ".desktop"))
        << "[Desktop Entry]\nType=Application\nName=Stamp\nStartupNotify=true\nExec="
        << LAUNCH_STAMP << " " << pipe.path.string() << "\n";
    setenv("XDG_DATA_HOME", folder.c_str(), 1);
}

void print(const char* what, const Samples& samples) {
    std::cout << std::left << std::setw(28) << what << std::right << std::fixed
              << std::setprecision(2);
    for (const double part : {0.0, 0.5, 0.9}) {
        std::cout << std::setw(9) << samples.quantile(part) / 1e6;
    }
    std::cout << "\n";
}

enum class On { noDesktop, desktop };

// Launches the program through the workspace.
class Launcher {
public:
    Launcher(const StampPipe& stamps, On where)
        : pipe(stamps), workspace(thread,
                                  where == On::desktop ? desktopBackends(thread)
                                                       : std::vector<WindowBackendFactory>{},
                                  {}) {}

    struct Launch {
        std::int64_t duration; // nanoseconds
        bool hasToken;
    };

    // Returns nullopt if the desktop entry is not found.
    std::optional<Launch> launch() {
        const std::int64_t requested = nanosecondsNow();
        const auto url = workspace.urlForApplication(identifier);
        if (!url) {
            return std::nullopt;
        }
        workspace.openApplication(*url);
        const StampPipe::Report report = pipe.next();
        return Launch{report.stamp - requested, report.hasToken != 0};
    }

private:
    const StampPipe& pipe;
    DesktopThread thread;
    LinuxWorkspace workspace;
};

int measure(const char* self, int launches, On where) {
    const test::TemporaryFolder folder;
    const StampPipe pipe(folder.path() / "stamps");
    const BareProcess bare(self, pipe.path); // started before this process allocates memory
    installEntry(folder.path(), pipe);
    std::optional<test::PrivateBus> bus;
    if (where == On::noDesktop) {
        bus.emplace();
        setenv("DBUS_SESSION_BUS_ADDRESS", bus->address().c_str(), 1);
    }
    const std::vector<char> memory(memoryOfTheProgram, 'x');
    Launcher launcher(pipe, where);
    Samples launched(static_cast<std::size_t>(launches));
    Samples yardstick(static_cast<std::size_t>(launches));
    int withToken = 0;
    for (int count = -notMeasured; count < launches; ++count) {
        usleep(pauseBetween);
        const auto launch = launcher.launch();
        if (!launch) {
            std::cerr << "the entry is not found\n";
            return 1;
        }
        usleep(pauseBetween);
        const std::int64_t began = bare.start();
        const std::int64_t bareDuration = pipe.next().stamp - began;
        if (count >= 0) {
            launched.add(static_cast<double>(launch->duration));
            yardstick.add(static_cast<double>(bareDuration));
            withToken += launch->hasToken ? 1 : 0;
        }
    }
    std::cout << "milliseconds                    least   median   9 of 10\n";
    print("request to first instruction", launched);
    print("bare posix_spawn", yardstick);
    std::cout << withToken << " of " << launches << " launches had a token\n";
    return 0;
}

} // namespace

} // namespace glidemap::bench

int main(int count, char** arguments) {
    if (count == 4 && std::strcmp(arguments[1], "--bare") == 0) {
        return glidemap::bench::startOnRequest(arguments[2], arguments[3]);
    }
    int launches = 200;
    auto where = glidemap::bench::On::noDesktop;
    for (int at = 1; at < count; ++at) {
        if (std::strcmp(arguments[at], "--desktop") == 0) {
            where = glidemap::bench::On::desktop;
        } else if (std::strcmp(arguments[at], "--launches") == 0 && at + 1 < count) {
            launches = std::atoi(arguments[++at]);
        }
    }
    return glidemap::bench::measure(arguments[0], launches, where);
}
