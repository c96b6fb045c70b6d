#include "desktops/x_server.h"

namespace glidemap::test {

namespace {

// The server writes its display number when it accepts connections.
Program::Command serverIn(const RuntimeFolder& folder, const std::vector<std::string>& arguments) {
    std::vector<std::string> words = {"Xvfb",       "-displayfd", "1",   "-screen", "0",
                                      "800x600x24", "-nolisten",  "tcp", "-noreset"};
    words.insert(words.end(), arguments.begin(), arguments.end());
    return {words, plainEnvironment(folder.path()), folder.path() / "Xvfb.log"};
}

} // namespace

std::string XServer::whyNot() {
    for (const char* const program : {"Xvfb", "openbox"}) {
        if (!isInstalled(program))
            return std::string(program) + " is not installed";
    }
    return "";
}

XServer::XServer(const std::vector<std::string>& arguments)
    : server(serverIn(folder, arguments)), name(":" + server.nextLine().value_or("")),
      settings(plainEnvironment(folder.path())) {
    settings["DISPLAY"] = name;
}

// The window manager runs its startup command when it is ready.
void XServer::startWindowManager() {
    manager.reset();
    manager = std::make_unique<Program>(Program::Command{
        {"openbox", "--sm-disable", "--startup", "echo ready"}, settings, folder.path() / "log"});
    manager->nextLine();
}

void XServer::killWindowManager() {
    manager->kill();
}

} // namespace glidemap::test
