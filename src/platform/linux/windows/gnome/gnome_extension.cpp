#include "platform/linux/windows/gnome/gnome_extension.h"

#include "platform/linux/desktop/desktop_bus.h"
#include "platform/linux/desktop/glib_owner.h"
#include "platform/linux/desktop/user_folders.h"

#include <gio/gio.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <system_error>
#include <utility>
#include <vector>

namespace glidemap {

namespace {

constexpr const char* shellName = "org.gnome.Shell";
constexpr const char* settingsName = "org.gnome.shell";
constexpr const char* shellPath = "/org/gnome/Shell";
constexpr std::chrono::seconds shellPatience{5}; // a stuck shell must not make the user wait longer
constexpr int firstVersionOfModules = 45;

// GNOME Shell's values for the state of an extension.
constexpr int stateEnabled = 1;
constexpr int stateError = 3;
constexpr int stateOutOfDate = 4;

using Value = GlibOwner<GVariant>;

struct Answer {
    Value values; // null on error
    std::string error;
    bool shellIsStarting = false; // the shell owns its bus name, but its objects do not exist yet
};

// Calls a method of the shell. Consumes a floating reference to the arguments.
Answer ask(const DesktopBus& bus, const char* interface, const char* method, GVariant* arguments,
           const char* type) {
    const DesktopBus::Call call{
        {shellName, shellPath, interface}, method, IfNotRunning::leave, shellPatience};
    DesktopBus::Reply reply = bus.wait(call, arguments);
    if (reply.error != nullptr) {
        return {nullptr, reply.error->message, isUnknownOnTheBus(*reply.error)};
    }
    if (!g_variant_is_of_type(reply.values.get(), G_VARIANT_TYPE(type))) {
        return {nullptr, std::string("unexpected reply to ") + method};
    }
    return {std::move(reply.values), ""};
}

constexpr const char* extensions = "org.gnome.Shell.Extensions";

// On failure, returns nullopt and sets `error`.
std::optional<int> majorVersion(const DesktopBus& bus, std::string& error) {
    const Answer answer = ask(bus, "org.freedesktop.DBus.Properties", "Get",
                              g_variant_new("(ss)", "org.gnome.Shell", "ShellVersion"), "(v)");
    if (answer.values == nullptr) {
        error = answer.error;
        return std::nullopt;
    }
    const Value version = variantIn(answer.values.get());
    if (!g_variant_is_of_type(version.get(), G_VARIANT_TYPE_STRING)) {
        error = "GNOME Shell does not report its version";
        return std::nullopt;
    }
    return static_cast<int>(std::strtol(g_variant_get_string(version.get(), nullptr), nullptr, 10));
}

std::filesystem::path installedFolder() {
    return userDataFolder() / "gnome-shell/extensions" / GnomeExtension::uuid;
}

// The shell's settings; null if their schema is not installed.
using Settings = GlibOwner<GSettings>;

Settings shellSettings() {
    GSettingsSchemaSource* const source = g_settings_schema_source_get_default();
    const GlibOwner<GSettingsSchema> schema(
        source == nullptr ? nullptr : g_settings_schema_source_lookup(source, settingsName, TRUE));
    return Settings(schema != nullptr ? g_settings_new(settingsName) : nullptr);
}

std::vector<std::string> listIn(GSettings* settings, const char* key) {
    return takeWords(g_settings_get_strv(settings, key));
}

bool isListedIn(GSettings* settings, const char* key) {
    const std::vector<std::string> list = listIn(settings, key);
    return std::find(list.begin(), list.end(), GnomeExtension::uuid) != list.end();
}

bool setList(GSettings* settings, const char* key, const std::vector<std::string>& list) {
    std::vector<const char*> words;
    words.reserve(list.size() + 1);
    for (const std::string& word : list) {
        words.push_back(word.c_str());
    }
    words.push_back(nullptr);
    return g_settings_set_strv(settings, key, words.data()) != FALSE;
}

// Changes the settings in the same way as the shell does when it enables a loaded extension.
std::optional<std::string> enableAtNextLogin() {
    const Settings settings = shellSettings();
    if (settings == nullptr) {
        return "GNOME Shell has no settings";
    }
    bool written = true;
    if (isListedIn(settings.get(), "disabled-extensions")) {
        std::vector<std::string> disabled = listIn(settings.get(), "disabled-extensions");
        std::erase(disabled, GnomeExtension::uuid);
        written = setList(settings.get(), "disabled-extensions", disabled);
    }
    if (!isListedIn(settings.get(), "enabled-extensions")) {
        std::vector<std::string> enabled = listIn(settings.get(), "enabled-extensions");
        enabled.emplace_back(GnomeExtension::uuid);
        written = setList(settings.get(), "enabled-extensions", enabled) && written;
    }
    g_settings_sync();
    return written ? std::nullopt
                   : std::optional<std::string>("GNOME Shell's settings cannot be written");
}

bool isEnabledAtNextLogin() {
    const Settings settings = shellSettings();
    return settings != nullptr && isListedIn(settings.get(), "enabled-extensions") &&
           !isListedIn(settings.get(), "disabled-extensions");
}

// Creates the link to this program. The extension sends windows only to the program to which this
// link points.
void linkToThisProgram(const std::filesystem::path& link, std::error_code& error) {
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    if (!error) {
        std::filesystem::remove(link, error);
    }
    if (!error) {
        std::filesystem::create_symlink(program, link, error);
    }
}

std::optional<std::string> copyForm(const std::filesystem::path& from) {
    const std::filesystem::path to = installedFolder();
    std::error_code error;
    std::filesystem::create_directories(to, error);
    for (const char* name : {"metadata.json", "extension.js"}) {
        if (!error) {
            std::filesystem::copy_file(from / name, to / name,
                                       std::filesystem::copy_options::overwrite_existing, error);
        }
    }
    if (!error) {
        linkToThisProgram(to / "program", error);
    }
    return error ? std::optional(to.string() + ": " + error.message()) : std::nullopt;
}

// `words` is the shell's reply about an extension. It is empty if the shell has not loaded the
// extension.
GnomeExtension::Status statusFrom(GVariant* words) {
    double number = 0;
    if (!g_variant_lookup(words, "state", "d", &number)) {
        return {GnomeExtension::State::missing, ""};
    }
    const char* error = "";
    g_variant_lookup(words, "error", "&s", &error);
    switch (std::lround(number)) {
    case stateEnabled:
        return {GnomeExtension::State::on, ""};
    case stateError:
        return {GnomeExtension::State::failed, error};
    case stateOutOfDate:
        return {GnomeExtension::State::failed, "not made for this version of GNOME Shell"};
    default:
        return {GnomeExtension::State::off, ""};
    }
}

} // namespace

GnomeExtension::GnomeExtension(std::filesystem::path ours) : forms(std::move(ours)) {}

GnomeExtension::Status GnomeExtension::status() const {
    const std::unique_ptr<DesktopBus> bus = DesktopBus::open();
    if (bus == nullptr || !bus->isOwned(shellName)) {
        return {State::noShell, ""};
    }
    const Answer answer =
        ask(*bus, extensions, "GetExtensionInfo", g_variant_new("(s)", uuid), "(a{sv})");
    if (answer.values == nullptr) {
        return answer.shellIsStarting ? Status{State::noShell, ""}
                                      : Status{State::failed, answer.error};
    }
    const Value words(g_variant_get_child_value(answer.values.get(), 0));
    Status known = statusFrom(words.get());
    std::error_code ignored;
    if (known.state == State::missing && isEnabledAtNextLogin() &&
        std::filesystem::exists(installedFolder() / "metadata.json", ignored)) {
        return {State::atNextLogin, ""};
    }
    return known;
}

std::optional<std::string> GnomeExtension::install() const {
    const std::unique_ptr<DesktopBus> bus = DesktopBus::open();
    if (bus == nullptr) {
        return "there is no session bus";
    }
    std::string error;
    const std::optional<int> version = majorVersion(*bus, error);
    if (!version) {
        return error;
    }
    const char* const form = *version >= firstVersionOfModules ? "from-45" : "up-to-44";
    if (std::optional<std::string> failure = copyForm(forms / form / uuid)) {
        return failure;
    }
    const Answer answer =
        ask(*bus, extensions, "EnableExtension", g_variant_new("(s)", uuid), "(b)");
    return booleanIn(answer.values.get()).value_or(false) ? std::nullopt : enableAtNextLogin();
}

} // namespace glidemap
