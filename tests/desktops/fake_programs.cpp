#include "desktops/fake_programs.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace glidemap::test {

namespace fs = std::filesystem;

// Starts a shell whose process name is `name`. The shell waits for the end of its standard input.
void FakePrograms::start(const std::string& name, const std::vector<std::string>& arguments,
                         const Environment& environment) {
    const fs::path program = daemons.path() / name;
    fs::copy_file("/bin/sh", program, fs::copy_options::skip_existing);
    std::vector<std::string> words = {program.string(), "-c", "echo ready; read end"};
    words.insert(words.end(), arguments.begin(), arguments.end());
    Program& started = running.emplace_back(Program::Command{
        .words = words, .environment = environment, .log = records.path() / "log"});
    EXPECT_EQ(started.nextLine(), "ready") << name;
}

void FakePrograms::install(const std::string& name, const std::string& text) {
    const fs::path program = programs.path() / name;
    std::ofstream(program) << "#!/bin/sh\necho " << name << " \"$@\" >>"
                           << (records.path() / "ran").string() << "\n"
                           << text << "\n";
    fs::permissions(program, fs::perms::owner_all);
}

std::string FakePrograms::ran() const {
    std::ifstream file(records.path() / "ran");
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

} // namespace glidemap::test
