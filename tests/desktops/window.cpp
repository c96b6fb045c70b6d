#include "desktops/window.h"

#include <gtest/gtest.h>

namespace glidemap::test {

Window::Window(const Environment& desktop, const std::string& appID, const std::string& title)
    : program({.words = {GLIDEMAP_TEST_WINDOW, appID, title},
               .environment = desktop,
               .log = std::filesystem::path(desktop.at("XDG_RUNTIME_DIR")) / "window.log"}) {
    EXPECT_EQ(program.nextLine(), "shown");
}

void Window::setTitle(const std::string& title) {
    program.writeLine(title);
    EXPECT_EQ(program.nextLine(), "titled");
}

void Window::close() {
    EXPECT_EQ(program.finish(), 0);
}

} // namespace glidemap::test
