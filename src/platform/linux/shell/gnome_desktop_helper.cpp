#include "platform/linux/shell/gnome_desktop_helper.h"

#include "platform/linux/desktop/environment.h"
#include "platform/linux/thread_setup.h"
#include "platform/linux/touch_driver_platform.h"

#include <filesystem>
#include <utility>

namespace glidemap {

namespace {

using Status = GnomeExtension::Status;
using State = DesktopHelper::State;

State stateFrom(GnomeExtension::State extension) {
    switch (extension) {
    case GnomeExtension::State::noShell:
    case GnomeExtension::State::on:
        return State::notNeeded;
    case GnomeExtension::State::missing:
    case GnomeExtension::State::off:
        return State::missing;
    case GnomeExtension::State::atNextLogin:
        return State::atNextLogin;
    case GnomeExtension::State::failed:
        return State::failed;
    }
    return State::notNeeded;
}

std::filesystem::path installedExtensionForms() {
    const std::filesystem::path program = programFile();
    return program.parent_path().parent_path() / "share" / "glidemap" / "gnome-shell";
}

// On X11, GNOME reports its windows without a helper.
bool isGnomeOnWayland() {
    return !fromEnvironment("WAYLAND_DISPLAY").empty() && isCurrentDesktop("GNOME");
}

Status installed(const GnomeDesktopHelper::Shell& shell) {
    if (auto failure = shell.install()) {
        return {GnomeExtension::State::failed, std::move(*failure)};
    }
    return shell.status();
}

} // namespace

GnomeDesktopHelper::Shell GnomeDesktopHelper::runningShell() {
    const GnomeExtension extension(installedExtensionForms());
    return {[extension] { return extension.status(); },
            [extension] {
                return extension.install();
            }};
}

std::shared_ptr<DesktopHelper> GnomeDesktopHelper::ofThisSession(std::shared_ptr<MainQueue> queue) {
    if (!isGnomeOnWayland()) {
        return nullptr;
    }
    return std::make_shared<GnomeDesktopHelper>(runningShell(), std::move(queue));
}

GnomeDesktopHelper::GnomeDesktopHelper(Shell asked, std::shared_ptr<MainQueue> queue)
    : shell(std::move(asked)), mainQueue(std::move(queue)),
      life(std::make_shared<GnomeDesktopHelper*>(this)) {
    ask(shell.status);
}

GnomeDesktopHelper::~GnomeDesktopHelper() {
    life.reset();
    worker.join();
}

void GnomeDesktopHelper::install() {
    if (_state == State::installing) {
        return;
    }
    become(State::installing, std::nullopt);
    ask([shell = shell] { return installed(shell); });
}

// The interface offers install() only after the shell has replied to the previous query. So the
// previous thread has finished or is about to finish, and join() does not take long.
void GnomeDesktopHelper::ask(std::function<Status()> question) {
    if (worker.joinable()) {
        worker.join();
    }
    worker = std::thread(
        [question = std::move(question), queue = mainQueue.get(), weak = std::weak_ptr(life)] {
            nameThread("glidemap-helper");
            queue->submit([status = question(), weak] {
                if (const auto alive = weak.lock()) {
                    const bool failed = status.state == GnomeExtension::State::failed;
                    (*alive)->become(stateFrom(status.state),
                                     failed ? std::optional(status.error) : std::nullopt);
                }
            });
        });
}

void GnomeDesktopHelper::become(State state, std::optional<std::string> error) {
    observers.announceWillChange();
    _state = state;
    _lastError = std::move(error);
    observers.announceDidChange();
}

} // namespace glidemap
