#include "platform/linux/session/autostart_file.h"

#include "platform/linux/desktop/exec_line.h"

#include <glib.h>

#include <algorithm>
#include <array>
#include <optional>
#include <system_error>
#include <utility>

namespace glidemap {

namespace {

constexpr const char* group = G_KEY_FILE_DESKTOP_GROUP;
constexpr const char* type = G_KEY_FILE_DESKTOP_KEY_TYPE;
constexpr const char* exec = G_KEY_FILE_DESKTOP_KEY_EXEC;
constexpr const char* tryExec = G_KEY_FILE_DESKTOP_KEY_TRY_EXEC;
constexpr const char* hidden = G_KEY_FILE_DESKTOP_KEY_HIDDEN;
constexpr const char* onlyShowIn = G_KEY_FILE_DESKTOP_KEY_ONLY_SHOW_IN;
constexpr const char* notShowIn = G_KEY_FILE_DESKTOP_KEY_NOT_SHOW_IN;
constexpr const char* gnomeEnabled = "X-GNOME-Autostart-enabled";

std::optional<std::string> stringIn(GKeyFile* keys, const char* key) {
    return takeText(g_key_file_get_string(keys, group, key, nullptr));
}

std::optional<std::vector<std::string>> listIn(GKeyFile* keys, const char* key) {
    char** const values = g_key_file_get_string_list(keys, group, key, nullptr, nullptr);
    if (values == nullptr) {
        return std::nullopt;
    }
    return takeWords(values);
}

// Returns `otherwise` if the key is missing or its value is neither true nor false.
bool booleanIn(GKeyFile* keys, const char* key, bool otherwise) {
    GError* failure = nullptr;
    const bool value = g_key_file_get_boolean(keys, group, key, &failure) != FALSE;
    const GlibOwner<GError> error(failure);
    return error == nullptr ? value : otherwise;
}

void remove(GKeyFile* keys, const char* key) {
    g_key_file_remove_key(keys, group, key, nullptr);
}

bool contains(const std::optional<std::vector<std::string>>& list, const std::string& name) {
    return list && std::find(list->begin(), list->end(), name) != list->end();
}

} // namespace

AutostartFile::AutostartFile() : keys(g_key_file_new()) {}

AutostartFile AutostartFile::read(const std::filesystem::path& file) {
    AutostartFile made;
    constexpr auto keepAll =
        static_cast<GKeyFileFlags>(G_KEY_FILE_KEEP_COMMENTS | G_KEY_FILE_KEEP_TRANSLATIONS);
    // Reads only regular files, because reading a pipe would block.
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error) ||
        g_key_file_load_from_file(made.keys.get(), file.c_str(), keepAll, nullptr) == FALSE) {
        made.keys.reset(g_key_file_new());
    }
    return made;
}

AutostartFile::Start AutostartFile::start(const AutostartSession& session) const {
    if (booleanIn(keys.get(), hidden, false)) {
        return Start::hidden;
    }
    if (!isForProgram() || !tryExecExists(session) || programIn(session).empty()) {
        return Start::impossible;
    }
    if (!booleanIn(keys.get(), gnomeEnabled, true)) {
        return Start::switchedOff;
    }
    return isShownIn(session) ? Start::happens : Start::elsewhere;
}

bool AutostartFile::starts(const AutostartSession& session,
                           const std::filesystem::path& program) const {
    std::error_code error;
    return start(session) == Start::happens &&
           std::filesystem::equivalent(programIn(session), program, error);
}

void AutostartFile::repair(const AutostartSession& session, const std::filesystem::path& program) {
    GKeyFile* const held = keys.get();
    std::error_code error;
    if (!std::filesystem::equivalent(programIn(session), program, error)) {
        g_key_file_set_string(held, group, exec, execLineOf(program).c_str());
    }
    remove(held, hidden);
    remove(held, gnomeEnabled);
    if (!tryExecExists(session)) {
        remove(held, tryExec);
    }
    if (!isShownIn(session)) {
        remove(held, onlyShowIn);
        remove(held, notShowIn);
    }
    describe();
}

void AutostartFile::hide() {
    g_key_file_set_boolean(keys.get(), group, hidden, TRUE);
    describe();
}

std::string AutostartFile::text() const {
    return takeText(g_key_file_to_data(keys.get(), nullptr, nullptr)).value_or("");
}

bool AutostartFile::isForProgram() const {
    return stringIn(keys.get(), type) == G_KEY_FILE_DESKTOP_TYPE_APPLICATION;
}

// Checks the desktop's names in order. The first name that is in OnlyShowIn or NotShowIn decides.
bool AutostartFile::isShownIn(const AutostartSession& session) const {
    const auto only = listIn(keys.get(), onlyShowIn);
    const auto except = listIn(keys.get(), notShowIn);
    for (const std::string& desktop : session.desktops) {
        if (contains(only, desktop)) {
            return true;
        }
        if (contains(except, desktop)) {
            return false;
        }
    }
    return !only;
}

bool AutostartFile::tryExecExists(const AutostartSession& session) const {
    const auto tried = stringIn(keys.get(), tryExec);
    return !tried || findProgram(*tried, session.searchPath).has_value();
}

// Returns an empty path if the Exec key does not name an executable file.
std::filesystem::path AutostartFile::programIn(const AutostartSession& session) const {
    const auto line = stringIn(keys.get(), exec);
    const auto words = wordsOfExecLine(line.value_or(""));
    return words.empty() ? std::filesystem::path()
                         : findProgram(words.front(), session.searchPath).value_or("");
}

// Sets the type, and adds a name and an icon if they are missing.
void AutostartFile::describe() {
    g_key_file_set_string(keys.get(), group, type, G_KEY_FILE_DESKTOP_TYPE_APPLICATION);
    constexpr std::array<std::pair<const char*, const char*>, 2> ifMissing{{
        {G_KEY_FILE_DESKTOP_KEY_NAME, "Glidemap"},
        {G_KEY_FILE_DESKTOP_KEY_ICON, "org.glidemap.Glidemap"},
    }};
    for (const auto& [key, value] : ifMissing) {
        if (!stringIn(keys.get(), key)) {
            g_key_file_set_string(keys.get(), group, key, value);
        }
    }
}

} // namespace glidemap
