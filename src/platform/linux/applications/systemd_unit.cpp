#include "platform/linux/applications/systemd_unit.h"

#include <cstddef>
#include <optional>

namespace glidemap {

namespace {

std::vector<std::string_view> split(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    for (;;) {
        const std::size_t end = text.find(separator);
        parts.push_back(text.substr(0, end));
        if (end == std::string_view::npos) {
            return parts;
        }
        text.remove_prefix(end + 1);
    }
}

bool removePrefix(std::string_view& text, std::string_view prefix) {
    const bool there = text.starts_with(prefix);
    if (there) {
        text.remove_prefix(prefix.size());
    }
    return there;
}

bool removeSuffix(std::string_view& text, std::string_view suffix) {
    const bool there = text.ends_with(suffix);
    if (there) {
        text.remove_suffix(suffix.size());
    }
    return there;
}

std::optional<int> hexDigit(char character) {
    if (character >= '0' && character <= '9') {
        return character - '0';
    }
    if (character >= 'a' && character <= 'f') {
        return character - 'a' + 10;
    }
    return std::nullopt;
}

std::string unescape(std::string_view text) {
    std::string plain;
    while (!text.empty()) {
        if (text.size() >= 4 && text.starts_with("\\x") && hexDigit(text[2]) && hexDigit(text[3])) {
            plain.push_back(static_cast<char>(*hexDigit(text[2]) * 16 + *hexDigit(text[3])));
            text.remove_prefix(4);
        } else {
            plain.push_back(text.front());
            text.remove_prefix(1);
        }
    }
    return plain;
}

// Returns the candidates for the ID at the end of a unit name: the text after each dash and, last,
// the whole text, all unescaped. If the launcher escaped the dashes in the ID, the ID is the first
// candidate. If it did not, and the name contains no LAUNCHER, the ID is the last one.
std::vector<std::string> endsOf(std::string_view text) {
    std::vector<std::string> ends;
    for (std::size_t dash = text.size(); dash > 0;) {
        dash = text.rfind('-', dash - 1);
        const std::string_view end = dash == std::string_view::npos ? text : text.substr(dash + 1);
        if (!end.empty()) {
            ends.push_back(unescape(end));
        }
        if (dash == std::string_view::npos) {
            break;
        }
    }
    return ends;
}

// Parses "SNAP.APP-RANDOM", "SNAP.APP.RANDOM" or "SNAP.APP".
UnitApplication snapOf(std::string_view text) {
    constexpr std::size_t maxRandom = 36;
    UnitApplication application{UnitApplication::Kind::snap, {}, ""};
    const std::size_t dot = text.find('.');
    if (dot == std::string_view::npos) {
        return application;
    }
    const std::string snap = unescape(text.substr(0, dot));
    std::string_view app = text.substr(dot + 1);
    if (app.size() > maxRandom + 1) {
        const std::size_t separator = app.size() - maxRandom - 1;
        if (app[separator] == '-' || app[separator] == '.') {
            application.random = std::string(app.substr(separator + 1));
            app = app.substr(0, separator);
        }
    }
    application.identifiers = {snap + "_" + unescape(app)};
    return application;
}

// Parses CONNECTION, "-", APPLICATION, "@" and NUMBER. The id of an application that D-Bus starts
// equals its bus name.
UnitApplication busServiceOf(std::string_view text) {
    const std::size_t dash = text.find('-');
    const std::size_t at = text.rfind('@');
    if (dash == std::string_view::npos || at == std::string_view::npos || at < dash) {
        return {};
    }
    return {UnitApplication::Kind::ordinary, {unescape(text.substr(dash + 1, at - dash - 1))}, ""};
}

UnitApplication launched(std::string_view text, std::string_view random) {
    if (removePrefix(text, "flatpak-")) {
        return {UnitApplication::Kind::flatpak, {unescape(text)}, std::string(random)};
    }
    return {UnitApplication::Kind::ordinary, endsOf(text), std::string(random)};
}

UnitApplication scopeOf(std::string_view text) {
    const std::size_t dash = text.rfind('-');
    if (dash == std::string_view::npos) {
        return {};
    }
    return launched(text.substr(0, dash), text.substr(dash + 1));
}

UnitApplication serviceOf(std::string_view text) {
    const std::size_t at = text.rfind('@');
    if (at == std::string_view::npos) {
        return launched(text, "");
    }
    return launched(text.substr(0, at), text.substr(at + 1));
}

UnitApplication applicationNamedBy(std::string_view unit) {
    const bool scope = removeSuffix(unit, ".scope");
    const bool service = !scope && removeSuffix(unit, ".service");
    if (!scope && !service) {
        return {};
    }
    if (removePrefix(unit, "snap.")) {
        return snapOf(unit);
    }
    if (service && removePrefix(unit, "dbus-")) {
        return busServiceOf(unit);
    }
    if (!removePrefix(unit, "app-")) {
        return {};
    }
    return scope ? scopeOf(unit) : serviceOf(unit);
}

} // namespace

// Removes empty identifiers. Otherwise a desktop entry without a package would match a package
// without a name.
UnitApplication applicationOfUnit(std::string_view unit) {
    UnitApplication application = applicationNamedBy(unit);
    std::erase_if(application.identifiers, [](const std::string& one) { return one.empty(); });
    return application;
}

std::string unitOfControlGroups(std::string_view text) {
    for (std::string_view line : split(text, '\n')) {
        if (!removePrefix(line, "0::") && line.find(":name=systemd:") == std::string_view::npos) {
            continue;
        }
        const auto folders = split(line, '/');
        // NOLINTNEXTLINE(modernize-loop-convert): Clang 14 does not compile reversed views
        for (auto folder = folders.rbegin(); folder != folders.rend(); ++folder) {
            if (folder->ends_with(".scope") || folder->ends_with(".service")) {
                return std::string(*folder);
            }
        }
    }
    return "";
}

} // namespace glidemap
