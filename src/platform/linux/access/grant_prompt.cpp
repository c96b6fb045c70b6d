#include "platform/linux/access/grant_prompt.h"

#include "platform/linux/thread_setup.h"
#include "platform/linux/touch_driver_platform.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <system_error>
#include <thread>
#include <utility>

namespace glidemap {

namespace {

// The path is absolute, because pkexec asks for a password. A search in PATH could find another
// program of this name, which could steal the password.
constexpr const char* pkexec = "/usr/bin/pkexec";

// Gives the child an empty standard input. Unblocks all signals in the child, and resets them to
// their default actions.
class SpawnAttributes {
public:
    SpawnAttributes() {
        sigset_t none;
        sigset_t all;
        sigemptyset(&none);
        sigfillset(&all);
        posix_spawnattr_init(&attributes);
        posix_spawnattr_setsigmask(&attributes, &none);
        posix_spawnattr_setsigdefault(&attributes, &all);
        posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    }
    SpawnAttributes(const SpawnAttributes&) = delete;
    SpawnAttributes& operator=(const SpawnAttributes&) = delete;
    ~SpawnAttributes() {
        posix_spawn_file_actions_destroy(&actions);
        posix_spawnattr_destroy(&attributes);
    }

    posix_spawnattr_t attributes{};
    posix_spawn_file_actions_t actions{};
};

pid_t spawn(const std::vector<std::string>& command) {
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (const std::string& word : command) {
        arguments.push_back(const_cast<char*>(word.c_str()));
    }
    arguments.push_back(nullptr);
    const SpawnAttributes with;
    pid_t process = -1;
    const int error = posix_spawn(&process, arguments.front(), &with.actions, &with.attributes,
                                  arguments.data(), environ);
    return error == 0 ? process : -1;
}

// The owner of a file can change its mode, so the owner must be root. If this process runs as root,
// it can write to any file, so the access check is skipped.
bool isFileWritableOnlyByRoot(const std::filesystem::path& file) {
    struct stat status {};
    return stat(file.c_str(), &status) == 0 && status.st_uid == 0 &&
           (status.st_mode & S_IWOTH) == 0 &&
           (geteuid() == 0 || faccessat(AT_FDCWD, file.c_str(), W_OK, AT_EACCESS) != 0);
}

int exitCodeOf(pid_t process) {
    int status = 0;
    pid_t ended = -1;
    do {
        ended = waitpid(process, &status, 0);
    } while (ended < 0 && errno == EINTR);
    return ended == process && WIFEXITED(status) ? WEXITSTATUS(status) : notAsked;
}

} // namespace

std::vector<std::string> grantAccessCommand(const std::filesystem::path& program) {
    const auto grantAccess = [](const std::filesystem::path& installation) {
        return installation / "libexec" / "glidemap" / "glidemap-grant-access";
    };
    const auto ownInstallation = program.parent_path().parent_path();
    for (const std::filesystem::path& installation :
         {ownInstallation, std::filesystem::path("/usr"), std::filesystem::path("/usr/local")}) {
        std::error_code error;
        const auto file = std::filesystem::canonical(grantAccess(installation), error);
        if (!error && isWritableOnlyByRoot(file)) {
            return {pkexec, file};
        }
    }
    return {};
}

std::vector<std::string> grantAccessCommand() {
    return grantAccessCommand(programFile());
}

bool isWritableOnlyByRoot(std::filesystem::path file) {
    while (isFileWritableOnlyByRoot(file)) {
        if (file == file.root_path()) {
            return true;
        }
        file = file.parent_path();
    }
    return false;
}

bool startGrantPrompt(const std::vector<std::string>& command,
                      std::function<void(int exitCode)> finished) {
    const pid_t process = command.empty() ? -1 : spawn(command);
    if (process < 0) {
        return false;
    }
    std::thread([process, finished = std::move(finished)] {
        nameThread("glidemap-prompt");
        const int exitCode = exitCodeOf(process);
        if (finished) {
            finished(exitCode);
        }
    }).detach();
    return true;
}

} // namespace glidemap
