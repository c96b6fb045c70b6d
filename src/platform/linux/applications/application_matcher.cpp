#include "platform/linux/applications/application_matcher.h"

#include "platform/linux/applications/application_name.h"
#include "platform/linux/applications/command_line.h"
#include "platform/linux/applications/systemd_unit.h"

#include <glib.h>

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace glidemap {

namespace {

using Candidates = std::vector<const DesktopEntry*>;

// Ignores case, and treats spaces as dashes: some programs report "Visual Studio Code" although
// their entry is named visual-studio-code.
char folded(char character) {
    return character == ' ' ? '-' : g_ascii_tolower(character);
}

bool alike(std::string_view one, std::string_view other) {
    if (one.size() != other.size()) {
        return false;
    }
    for (std::size_t at = 0; at < one.size(); ++at) {
        if (folded(one[at]) != folded(other[at])) {
            return false;
        }
    }
    return true;
}

template <typename Rule>
const DesktopEntry* onlyOne(const Candidates& candidates, Rule holds) {
    const DesktopEntry* any = nullptr;
    const DesktopEntry* visible = nullptr;
    std::size_t all = 0;
    std::size_t allVisible = 0;
    for (const DesktopEntry* const entry : candidates) {
        if (!holds(*entry)) {
            continue;
        }
        any = entry;
        ++all;
        if (entry->visible) {
            visible = entry;
            ++allVisible;
        }
    }
    if (all == 1) {
        return any;
    }
    return allVisible == 1 ? visible : nullptr;
}

class Search {
public:
    Search(const std::vector<DesktopEntry>& entries, const WindowIdentity& of, ProcessFacts known)
        : window(of), facts(std::move(known)),
          unit(applicationOfUnit(unitOfControlGroups(facts.controlGroups))) {
        for (const DesktopEntry& entry : entries) {
            if (inPackage(entry)) {
                candidates.push_back(&entry);
            }
        }
    }

    const DesktopEntry* run() const {
        using Step = const DesktopEntry* (Search::*)() const;
        constexpr std::array<Step, 9> steps = {
            &Search::byInstanceClass, &Search::byIdentifier,    &Search::byWindowClass,
            &Search::byInstance,      &Search::byLastComponent, &Search::bySteamGame,
            &Search::byUnit,          &Search::byLaunch,        &Search::byProgram};
        for (const Step step : steps) {
            if (const DesktopEntry* const entry = (this->*step)()) {
                return entry;
            }
        }
        return nullptr;
    }

private:
    bool inPackage(const DesktopEntry& entry) const {
        if (unit.identifiers.empty() || unit.kind == UnitApplication::Kind::ordinary) {
            return true;
        }
        const std::string& package = unit.identifiers.front();
        if (unit.kind == UnitApplication::Kind::flatpak) {
            return entry.identifier == package || entry.flatpak == package ||
                   entry.identifier.starts_with(package + ".");
        }
        return entry.identifier.starts_with(package.substr(0, package.find('_') + 1));
    }

    const DesktopEntry* identified(std::string_view identifier) const {
        if (identifier.empty()) {
            return nullptr;
        }
        return onlyOne(candidates,
                       [&](const DesktopEntry& entry) { return entry.identifier == identifier; });
    }

    const DesktopEntry* identifiedInAnyCase(std::string_view identifier) const {
        if (identifier.empty()) {
            return nullptr;
        }
        return onlyOne(candidates, [&](const DesktopEntry& entry) {
            return alike(entry.identifier, identifier);
        });
    }

    const DesktopEntry* classed(std::string_view name) const {
        if (name.empty()) {
            return nullptr;
        }
        return onlyOne(candidates,
                       [&](const DesktopEntry& entry) { return entry.windowClass == name; });
    }

    const DesktopEntry* classedInAnyCase(std::string_view name) const {
        if (name.empty()) {
            return nullptr;
        }
        return onlyOne(candidates,
                       [&](const DesktopEntry& entry) { return alike(entry.windowClass, name); });
    }

    const DesktopEntry* endingIn(std::string_view name) const {
        if (name.empty()) {
            return nullptr;
        }
        return onlyOne(candidates, [&](const DesktopEntry& entry) {
            return alike(lastComponent(entry.identifier), name);
        });
    }

    const DesktopEntry* byInstanceClass() const { return classed(window.instance); }

    const DesktopEntry* byIdentifier() const {
        const DesktopEntry* const exact = identified(window.appID);
        return exact != nullptr ? exact : identifiedInAnyCase(window.appID);
    }

    const DesktopEntry* byWindowClass() const {
        const DesktopEntry* entry = classed(window.appID);
        if (entry == nullptr) {
            entry = classedInAnyCase(window.appID);
        }
        return entry != nullptr ? entry : classedInAnyCase(window.instance);
    }

    const DesktopEntry* byInstance() const { return identifiedInAnyCase(window.instance); }

    const DesktopEntry* byLastComponent() const {
        const DesktopEntry* const entry = endingIn(window.appID);
        return entry != nullptr ? entry : endingIn(window.instance);
    }

    std::string_view steamGame() const {
        constexpr std::string_view prefix = "steam_app_";
        const std::string_view name = window.appID;
        return name.starts_with(prefix) ? name.substr(prefix.size()) : std::string_view();
    }

    const DesktopEntry* bySteamGame() const {
        const std::string_view game = steamGame();
        if (game.empty()) {
            return nullptr;
        }
        return onlyOne(candidates,
                       [&](const DesktopEntry& entry) { return entry.steamGame == game; });
    }

    // Whether the unit belongs to the window's own application. A command typed in a terminal runs
    // in the terminal's unit, and Steam runs games in Steam's unit.
    bool unitIsItsOwn() const {
        if (unit.kind != UnitApplication::Kind::ordinary) {
            return true;
        }
        const bool leader = window.process && unit.random == std::to_string(*window.process);
        return leader || (!facts.onTerminal && steamGame().empty());
    }

    const DesktopEntry* byUnit() const {
        if (!unitIsItsOwn()) {
            return nullptr;
        }
        for (const std::string& identifier : unit.identifiers) {
            if (const DesktopEntry* const entry = identified(identifier)) {
                return entry;
            }
        }
        return nullptr;
    }

    const DesktopEntry* byLaunch() const {
        if (facts.launchedFrom.empty()) {
            return nullptr;
        }
        return onlyOne(candidates,
                       [&](const DesktopEntry& entry) { return entry.path == facts.launchedFrom; });
    }

    const DesktopEntry* starting(const std::string& program) const {
        if (program.empty()) {
            return nullptr;
        }
        return onlyOne(candidates, [&](const DesktopEntry& entry) {
            return !entry.inTerminal && entry.program == program;
        });
    }

    const DesktopEntry* byProgram() const {
        const std::string executable = programOf({facts.executable});
        const DesktopEntry* const entry = starting(executable);
        return entry != nullptr ? entry : starting(programOf(facts.arguments));
    }

    const WindowIdentity& window;
    ProcessFacts facts;
    UnitApplication unit;
    Candidates candidates;
};

std::string ownName(const WindowIdentity& window, const ProcessReader& processes) {
    std::string name = cleanIdentifier(window.appID);
    if (name.empty()) {
        name = cleanIdentifier(window.instance);
    }
    if (!name.empty() || !window.process) {
        return name;
    }
    const ProcessFacts facts = processes.read(*window.process);
    name = cleanIdentifier(programOf(facts.arguments));
    return name.empty() ? cleanIdentifier(fileNameOf(facts.executable)) : name;
}

} // namespace

ApplicationMatcher::ApplicationMatcher(const std::vector<DesktopEntry>& installed,
                                       const ProcessReader& reader)
    : entries(installed), processes(reader) {}

const DesktopEntry* ApplicationMatcher::entryOf(const WindowIdentity& window) const {
    ProcessFacts facts;
    if (window.process) {
        facts = processes.read(*window.process);
    }
    return Search(entries, window, std::move(facts)).run();
}

Application ApplicationMatcher::describe(const WindowIdentity& window) const {
    std::string name = ownName(window, processes);
    if (name.empty()) {
        return {};
    }
    std::string shown = nameFromIdentifier(name);
    return {std::move(name), std::move(shown)};
}

} // namespace glidemap
