#include "running_glidemap.h"

#include "waiting.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <csignal>
#include <sstream>

namespace glidemap::test {

namespace {

constexpr const char* windowTitle = "Glidemap";
// The height of the strip at the window's lower edge that contains the footer's labels, in pixels.
constexpr int footerHeight = 44;

bool hasEnded(pid_t process) {
    siginfo_t end{};
    return waitid(P_PID, static_cast<id_t>(process), &end, WEXITED | WNOHANG | WNOWAIT) != 0 ||
           end.si_pid == process;
}

bool isCalled(const Control& control, const std::string& role, const std::string& name) {
    return control.role == role && (control.name == name || control.label == name);
}

} // namespace

RunningGlidemap::RunningGlidemap(ApplicationStage& shown)
    : RunningGlidemap(shown, shown.command()) {}

RunningGlidemap::RunningGlidemap(ApplicationStage& shown, const Program::Command& command)
    : stage(shown), program(command) {}

std::optional<ManagedWindow> RunningGlidemap::window() const {
    const std::vector<ManagedWindow> all = stage.display.windows();
    const auto found = std::ranges::find_if(all, [this](const ManagedWindow& each) {
        return each.title == windowTitle &&
               each.process == static_cast<std::uint32_t>(program.process());
    });
    return found != all.end() ? std::optional(*found) : std::nullopt;
}

bool RunningGlidemap::waitForWindow() {
    bool shown = false;
    waitUntil([&] {
        const auto found = window();
        shown = found && stage.display.activeWindow() == found->id;
        return shown || hasEnded(process());
    });
    EXPECT_TRUE(shown) << "the window does not appear in front; the program printed:\n"
                       << contentOf(stage.complaintsFile());
    return shown && waitUntil([this] { return !controls().empty(); });
}

Controls RunningGlidemap::controls() const {
    return stage.accessibility.controlsOf(program.process());
}

std::optional<Control> RunningGlidemap::find(const std::string& role,
                                             const std::string& name) const {
    const Controls all = controls();
    const auto found = std::find_if(
        all.begin(), all.end(), [&](const Control& each) { return isCalled(each, role, name); });
    return found != all.end() ? std::optional(*found) : std::nullopt;
}

Control RunningGlidemap::waitFor(const std::string& role, const std::string& name) const {
    std::optional<Control> found;
    EXPECT_TRUE(waitUntil([&] {
        found = find(role, name);
        return found.has_value();
    })) << "no "
        << role << " \"" << name << "\" among\n"
        << described();
    return found.value_or(Control{});
}

bool RunningGlidemap::waitUntilGone(const std::string& role, const std::string& name) const {
    return waitUntil([&] { return !find(role, name); });
}

std::string RunningGlidemap::footer() const {
    const auto shown = window();
    std::string line;
    if (!shown) {
        return line;
    }
    const Rectangle& area = shown->content;
    const Rectangle bottom{area.x, area.y + area.height - footerHeight, area.width, footerHeight};
    for (const Control& each : controls()) {
        if (each.role == "label" && !each.name.empty() && bottom.contains(each.area)) {
            line += (line.empty() ? "" : " ") + each.name;
        }
    }
    return line;
}

bool RunningGlidemap::waitForFooter(const std::string& text) const {
    std::string last;
    const bool came = waitUntil([&] {
        last = footer();
        return last == text;
    });
    EXPECT_TRUE(came) << "the footer says \"" << last << "\" and not \"" << text << "\"";
    return came;
}

// Returns the innermost focused control, because a container that delegates its focus also reports
// the focus.
std::optional<Control> RunningGlidemap::focused() const {
    const Controls all = controls();
    const auto found = std::find_if(all.rbegin(), all.rend(), [](const Control& each) {
        return each.isFocused() && each.isFocusable();
    });
    return found != all.rend() ? std::optional(*found) : std::nullopt;
}

// Also returns true for a container of the focused control.
bool RunningGlidemap::hasFocus(const std::string& name) const {
    const Controls all = controls();
    return std::any_of(all.begin(), all.end(), [&](const Control& each) {
        return each.isFocused() && (each.name == name || each.label == name);
    });
}

bool RunningGlidemap::waitForFocusOn(const std::string& name) const {
    return waitUntil([&] { return hasFocus(name); });
}

void RunningGlidemap::click(const std::string& role, const std::string& name) const {
    stage.hands.clickMiddleOf(waitFor(role, name).area);
}

TrayMenu RunningGlidemap::menu() const {
    EXPECT_TRUE(waitUntil([this] { return !stage.panel->items().empty(); }))
        << "the program registers no status item";
    const auto items = stage.panel->items();
    return {stage.session.connection(), items.empty() ? StatusHost::Item{} : items.front()};
}

std::optional<int> RunningGlidemap::end(int signal) {
    kill(program.process(), signal);
    return waitForEnd();
}

std::optional<int> RunningGlidemap::waitForEnd() {
    return program.finish();
}

std::string RunningGlidemap::described() const {
    std::ostringstream lines;
    for (const Control& each : controls()) {
        lines << describe(each) << '\n';
    }
    lines << "and the program said:\n" << contentOf(stage.complaintsFile());
    return lines.str();
}

} // namespace glidemap::test
