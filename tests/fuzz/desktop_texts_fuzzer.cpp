// Parses texts that desktops and other programs supply: KWin's report, unit names, control groups,
// Exec lines, identifiers of windows and desktop entries, and values of the settings portal.
//
// The first byte of the input selects the kind of text. No input may cause a crash, and these rules
// must hold:
//
//   - a cleaned identifier is UTF-8, short and without control characters, and cleaning it again
//     does not change it;
//   - the program can parse the texts that it writes: Exec lines and scope names;
//   - the desktop entry found for a window is an existing entry, or null;
//   - the portal's latest colour scheme replaces earlier ones.
#include "platform/linux/applications/application_matcher.h"
#include "platform/linux/applications/application_name.h"
#include "platform/linux/applications/command_line.h"
#include "platform/linux/applications/systemd_unit.h"
#include "platform/linux/desktop/application_scope.h"
#include "platform/linux/desktop/exec_line.h"
#include "platform/linux/shell/appearance_values.h"
#include "platform/linux/windows/kwin/kwin_script.h"
#include "require.h"

#include <gio/gio.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace glidemap;
using fuzz::require;

bool isUTF8(std::string_view text) {
    return g_utf8_validate(text.data(), static_cast<gssize>(text.size()), nullptr) != FALSE;
}

bool hasControlCharacter(std::string_view text) {
    return std::ranges::any_of(text, [](char letter) {
        const auto byte = static_cast<unsigned char>(letter);
        return byte < 0x20 || byte == 0x7f;
    });
}

// Splits the text at zero bytes. If there are fewer than `count` pieces, adds empty ones.
std::vector<std::string> pieces(std::string_view text, std::size_t count) {
    std::vector<std::string> result;
    for (std::size_t end = 0; end != std::string_view::npos;) {
        end = text.find('\0');
        result.emplace_back(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    result.resize(std::max(count, result.size()));
    return result;
}

void readReportOfKWin(std::string_view text) {
    const auto report = readKWinReport(text);
    if (!report) {
        return;
    }
    for (const WindowIdentity& window : report->windows) {
        require(!window.process || *window.process > 0, "a process has a positive number");
        require(isUTF8(window.appID) && isUTF8(window.instance) && isUTF8(window.title),
                "text from JSON is UTF-8");
    }
}

void readUnit(std::string_view text) {
    const UnitApplication application = applicationOfUnit(unitOfControlGroups(text));
    require(std::ranges::none_of(application.identifiers, &std::string::empty),
            "an identifier is not empty");
    applicationOfUnit(text);
}

void writeScope(std::string_view text) {
    const std::string identifier(text.substr(0, 100));
    const bool isPossible = !identifier.empty() && !identifier.ends_with(".desktop") &&
                            identifier.find('\0') == std::string::npos;
    if (!isPossible) {
        return;
    }
    const std::string scope = scopeName(identifier, 123);
    const auto identifiers = applicationOfUnit(scope).identifiers;
    require(scope.find_first_of("/ \n") == std::string::npos, "systemd takes the scope's name");
    require(std::ranges::find(identifiers, identifier) != identifiers.end(),
            "the name of the program's scope contains the application's identifier");
}

void readExecLine(std::string_view text) {
    const std::string line(text);
    const auto words = wordsOfExecLine(line);
    programOf(words);
    flatpakOf(words);
    steamGameOf(words);
    DesktopEntry entry;
    readExec(entry, line);
}

void writeExecLine(std::string_view text) {
    const std::string path = "/" + std::string(text.substr(0, text.find('\0')));
    const std::string line = execLineOf(path);
    require(wordsOfExecLine(line) == std::vector{path},
            "the session and the program read the Exec line that the program wrote");
}

void readIdentifier(std::string_view text) {
    constexpr std::size_t maxIdentifier = 256;
    const std::string clean = cleanIdentifier(text);
    require(isUTF8(clean), "a clean identifier is UTF-8");
    require(clean.size() <= maxIdentifier, "a clean identifier is short");
    require(!hasControlCharacter(clean), "a clean identifier has no control characters");
    require(cleanIdentifier(clean) == clean, "cleaning a clean identifier changes nothing");
    if (isUTF8(text) && !hasControlCharacter(text) && !text.starts_with(' ')) {
        require(text.starts_with(clean), "UTF-8 text is kept");
    }
    require(isUTF8(nameFromIdentifier(clean)), "a name is UTF-8");
    require(clean.ends_with(lastComponent(clean)), "the last component comes last");
}

class ReportedProcesses : public ProcessReader {
public:
    explicit ReportedProcesses(ProcessFacts reported) : facts(std::move(reported)) {}
    ProcessFacts read(pid_t /*process*/) const override { return facts; }

private:
    ProcessFacts facts;
};

DesktopEntry entryOf(const std::vector<std::string>& words, std::size_t first) {
    DesktopEntry entry;
    entry.identifier = words[first];
    entry.name = words[first + 1];
    entry.windowClass = words[first + 2];
    entry.path = words[first + 1];
    readExec(entry, words[first + 3]);
    return entry;
}

void matchWindow(std::string_view text) {
    const auto words = pieces(text, 16);
    const std::vector<DesktopEntry> entries = {entryOf(words, 8), entryOf(words, 12)};
    const ReportedProcesses processes({.controlGroups = words[4],
                                       .executable = words[5],
                                       .arguments = {words[6], words[7], words[0]},
                                       .launchedFrom = words[9],
                                       .onTerminal = words[3].size() % 2 == 1});
    const ApplicationMatcher matcher(entries, processes);
    for (const auto& process : {std::optional<pid_t>(), std::optional<pid_t>(123)}) {
        const WindowIdentity window{words[0], words[1], words[2], process};
        const DesktopEntry* entry = matcher.entryOf(window);
        require(entry == nullptr || entry == &entries[0] || entry == &entries[1],
                "the entry is an existing entry");
        const Application application = matcher.describe(window);
        require(application.bundleID.has_value() == application.name.has_value(),
                "an application has both an identifier and a name, or neither");
    }
}

void takePortalValue(std::string_view text) {
    constexpr std::string_view colours = "org.freedesktop.appearance";
    constexpr const char* keys[] = {"color-scheme", "reduced-motion", "enable-animations",
                                    "AnimationDurationFactor"};
    AppearanceValues values;
    for (const std::string& word : pieces(text, 1)) {
        const std::size_t choice = word.empty() ? 0 : static_cast<unsigned char>(word[0]);
        const char* group = AppearanceValues::groups[choice % 4];
        GVariant* value =
            word.empty() ? nullptr
                         : g_variant_parse(nullptr, word.c_str() + 1, nullptr, nullptr, nullptr);
        if (value != nullptr) {
            values.take(group != nullptr ? group : colours, keys[(choice / 4) % 4], value);
            g_variant_unref(value);
        }
    }
    GVariant* dark = g_variant_ref_sink(g_variant_new_uint32(1));
    values.take(colours, "color-scheme", dark);
    g_variant_unref(dark);
    require(values.appearance().colorScheme == ColorScheme::dark, "the portal's last value counts");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    constexpr void (*kinds[])(std::string_view) = {
        readReportOfKWin, readUnit,       writeScope,  readExecLine,
        writeExecLine,    readIdentifier, matchWindow, takePortalValue,
    };
    const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
    kinds[data[0] % std::size(kinds)](text);
    return 0;
}
