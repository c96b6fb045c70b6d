#include "panel_desktop.h"

#include "variant.h"

#include <gtest/gtest.h>

#include <utility>

namespace glidemap::test {

namespace {

const Callee watcher{"org.kde.StatusNotifierWatcher", "/StatusNotifierWatcher",
                     "org.kde.StatusNotifierWatcher"};

} // namespace

std::vector<StatusHost::Item> PanelDesktop::items() const {
    std::vector<StatusHost::Item> found;
    const OwnedVariant names =
        property(session.connection(), watcher, "RegisteredStatusNotifierItems");
    for (std::size_t index = 0; names != nullptr && index < g_variant_n_children(names.get());
         ++index) {
        const std::string item = textOf(childOf(names, index));
        const std::size_t slash = item.find('/');
        found.push_back({item.substr(0, slash), item.substr(slash)});
    }
    return found;
}

bool PanelDesktop::watcherHasHost() const {
    const OwnedVariant has =
        property(session.connection(), watcher, "IsStatusNotifierHostRegistered");
    return has != nullptr && g_variant_get_boolean(has.get()) != FALSE;
}

Program::Command PanelDesktop::command(std::vector<std::string> words,
                                       const Environment& more) const {
    Environment values = environment();
    values["DBUS_SESSION_BUS_ADDRESS"] = session.address();
    values["DBUS_SYSTEM_BUS_ADDRESS"] = system.address();
    values.emplace("NO_AT_BRIDGE", "1"); // no accessibility: other tests cover it
    for (const auto& [name, value] : more) {
        values[name] = value;
    }
    const std::filesystem::path program = words.front();
    return {.words = std::move(words),
            .environment = values,
            .log = home.path() / (program.filename().string() + ".log")};
}

std::unique_ptr<Program> PanelDesktop::start(std::vector<std::string> words,
                                             const Environment& more) const {
    return std::make_unique<Program>(command(std::move(words), more));
}

void PanelDesktop::run(std::vector<std::string> words, const Environment& more) const {
    const std::string name = words.front();
    EXPECT_EQ(start(std::move(words), more)->finish(), 0) << name;
}

} // namespace glidemap::test
