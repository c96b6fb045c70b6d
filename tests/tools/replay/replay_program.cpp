#include "replay_program.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <sstream>

extern char** environ;

namespace glidemap::test {

namespace {

class Redirections {
public:
    Redirections() { posix_spawn_file_actions_init(&actions); }
    Redirections(const Redirections&) = delete;
    Redirections& operator=(const Redirections&) = delete;
    ~Redirections() { posix_spawn_file_actions_destroy(&actions); }

    void add(int descriptor, const std::string& path, int flags) {
        posix_spawn_file_actions_addopen(&actions, descriptor, path.c_str(), flags, 0600);
    }

    posix_spawn_file_actions_t actions{};
};

int spawnAndWait(const std::string& program, const std::vector<std::string>& arguments,
                 const Redirections& redirections) {
    std::vector<std::string> words = {program};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    for (std::string& word : words) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    pid_t process = -1;
    const int problem = posix_spawn(&process, program.c_str(), &redirections.actions, nullptr,
                                    pointers.data(), environ);
    EXPECT_EQ(problem, 0);
    int status = 0;
    EXPECT_EQ(waitpid(process, &status, 0), process);
    EXPECT_TRUE(WIFEXITED(status)) << "killed by signal " << WTERMSIG(status);
    return WEXITSTATUS(status);
}

} // namespace

Ended replay(const std::vector<std::string>& arguments, const std::string& input) {
    return replayWith(GLIDEMAP_REPLAY_PROGRAM, arguments, input);
}

Ended replayWith(const std::string& program, const std::vector<std::string>& arguments,
                 const std::string& input) {
    const Folder folder;
    const std::string output = folder.write("output", "");
    const std::string errors = folder.write("errors", "");
    Redirections redirections;
    redirections.add(STDIN_FILENO, folder.write("input", input), O_RDONLY);
    redirections.add(STDOUT_FILENO, output, O_WRONLY);
    redirections.add(STDERR_FILENO, errors, O_WRONLY);
    const int status = spawnAndWait(program, arguments, redirections);
    return {status, contentOf(output), contentOf(errors)};
}

Ended replayInto(const std::string& outputPath, const std::vector<std::string>& arguments) {
    const Folder folder;
    const std::string errors = folder.write("errors", "");
    Redirections redirections;
    redirections.add(STDOUT_FILENO, outputPath, O_WRONLY);
    redirections.add(STDERR_FILENO, errors, O_WRONLY);
    const int status = spawnAndWait(GLIDEMAP_REPLAY_PROGRAM, arguments, redirections);
    return {status, "", contentOf(errors)};
}

std::string Folder::write(const std::string& name, const std::string& content) const {
    return folder.write(name, content).string();
}

std::string Folder::copy(const std::string& file, const std::string& name) const {
    const auto path = folder.path() / name;
    std::filesystem::create_directories(path.parent_path());
    std::filesystem::copy_file(file, path);
    return path.string();
}

std::string tapOf(int count, double down, double up) {
    std::ostringstream lines;
    lines << R"({"t":)" << down << R"(,"touches":[)";
    for (int finger = 0; finger < count; ++finger) {
        lines << (finger > 0 ? "," : "") << '[' << finger + 1 << ',' << 0.3 + 0.1 * finger
              << ",0.5,4]";
    }
    lines << "]}\n" << nothingAt(up);
    return lines.str();
}

std::string deliveredLine(const std::string& time, const std::string& gesture) {
    return R"({"t":)" + time + R"(,"gesture":")" + gesture +
           R"(","delivered":true,"binding":null,"action":null,"app":null})"
           "\n";
}

std::string nothingAt(double time) {
    std::ostringstream line;
    line << R"({"t":)" << time << R"(,"touches":[]})" << '\n';
    return line.str();
}

} // namespace glidemap::test
