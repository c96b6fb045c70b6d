#include "agent_session.h"

#include "file_changes.h"
#include "unprivileged.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <vector>

namespace glidemap::test {

std::string bindingJson(const std::string& gesture, const std::string& action,
                        const std::string& scope) {
    static int made = 0;
    std::string number = std::to_string(++made);
    number.insert(0, 12 - number.size(), '0');
    return R"({"id":"00000000-0000-4000-8000-)" + number + R"(","gesture":")" + gesture +
           R"(","action":)" + action + R"(,"scope":)" + scope + R"(,"enabled":true})";
}

std::string shortcutJson(int keyCode, unsigned long modifiers) {
    return R"({"kind":"keyboardShortcut","shortcut":{"keyCode":)" + std::to_string(keyCode) +
           R"(,"modifiers":)" + std::to_string(modifiers) + "}}";
}

AgentHome::AgentHome() : folder("/run/glidemap-agent"), data(folder / "data") {
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(applications());
    std::filesystem::create_directories(folder / "runtime");
    std::filesystem::permissions(folder / "runtime", std::filesystem::perms::owner_all);
    setenv("XDG_DATA_HOME", data.c_str(), 1);
    setenv("XDG_CONFIG_HOME", (folder / "config").c_str(), 1);
    setenv("XDG_RUNTIME_DIR", (folder / "runtime").c_str(), 1);
    setenv("HOME", folder.c_str(), 1);
}

AgentHome::~AgentHome() {
    std::filesystem::remove_all(folder);
}

void AgentHome::writeBindings(std::initializer_list<std::string> bindings) const {
    std::filesystem::create_directories(bindingsFile().parent_path());
    std::ofstream file(bindingsFile());
    const char* separator = "[";
    for (const std::string& binding : bindings) {
        file << separator << binding;
        separator = ",\n";
    }
    file << (bindings.size() == 0 ? "[]" : "]");
}

void AgentHome::giveToNobody() const {
    EXPECT_EQ(chown(folder.c_str(), unprivilegedUser, unprivilegedUser), 0);
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        EXPECT_EQ(chown(entry.path().c_str(), unprivilegedUser, unprivilegedUser), 0)
            << entry.path();
    }
}

void AgentHome::writeDefaults(const std::string& lines) const {
    std::filesystem::create_directories(folder / "config" / "glidemap");
    std::ofstream(folder / "config" / "glidemap" / "glidemap.ini") << "[General]\n" << lines;
}

bool waitForFile(const std::filesystem::path& file) {
    return waitForChanges({file.parent_path()}, [&] { return std::filesystem::exists(file); });
}

Agent::Agent(Process::User user, Asks asks) {
    std::vector<std::string> command{GLIDEMAP_AGENT_PROGRAM};
    if (asks == Asks::never) {
        command.emplace_back("--never-ask");
    }
    process = std::make_unique<Process>(command, user);
    EXPECT_TRUE(process->waitForOutput("ready")) << process->errors();
}

} // namespace glidemap::test
