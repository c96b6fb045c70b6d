#include "bindings/binding_object_decoder.h"

#include <nlohmann/json.hpp>

#include <limits>

namespace glidemap {

std::optional<GestureBinding> BindingObjectDecoder::decode(BindingObject& object) {
    const Part binding{object, ""};
    const auto id = identifier(binding);
    const auto itsGesture = gesture(binding);
    auto itsAction = action(binding);
    auto itsScope = scope(binding);
    const auto enabled = flag(binding, BindingKey::enabled);
    if (!id || !itsGesture || !itsAction || !itsScope || !enabled) {
        return std::nullopt;
    }
    return GestureBinding{.id = *id,
                          .gesture = *itsGesture,
                          .action = std::move(*itsAction),
                          .scope = std::move(*itsScope),
                          .enabled = *enabled};
}

std::optional<Uuid> BindingObjectDecoder::identifier(const Part& part) {
    const auto written = text(part, BindingKey::id);
    if (!written) {
        return std::nullopt;
    }
    const auto parsed = Uuid::parse(*written);
    if (!parsed) {
        failText(part, BindingKey::id, *written, "a UUID");
    }
    return parsed;
}

std::optional<GestureType> BindingObjectDecoder::gesture(const Part& part) {
    const auto written = text(part, BindingKey::gesture);
    if (!written) {
        return std::nullopt;
    }
    const auto found = gestureTypeFromRawValue(*written);
    if (!found) {
        failText(part, BindingKey::gesture, *written, "a gesture");
    }
    return found;
}

std::optional<BindingAction> BindingObjectDecoder::action(const Part& binding) {
    const auto own = part(binding, BindingKey::action, "action.");
    const auto kind = own ? text(*own, BindingKey::kind) : std::nullopt;
    if (!kind) {
        return std::nullopt;
    }
    if (*kind == "keyboardShortcut") {
        return shortcut(*own);
    }
    if (*kind == "lockScreen") {
        return LockScreen{};
    }
    if (*kind == "missionControl") {
        return MissionControl{};
    }
    if (*kind == "launchApp") {
        return launch(*own);
    }
    failText(*own, BindingKey::kind, *kind, "a kind of action");
    return std::nullopt;
}

std::optional<BindingAction> BindingObjectDecoder::shortcut(const Part& action) {
    const auto own = part(action, BindingKey::shortcut, "action.shortcut.");
    if (!own) {
        return std::nullopt;
    }
    const auto keyCode =
        integer(*own, BindingKey::keyCode, std::numeric_limits<std::uint16_t>::max());
    const auto modifiers =
        integer(*own, BindingKey::modifiers, std::numeric_limits<std::uint64_t>::max());
    if (!keyCode || !modifiers) {
        return std::nullopt;
    }
    return KeyShortcut{static_cast<std::uint16_t>(*keyCode), *modifiers};
}

std::optional<BindingAction> BindingObjectDecoder::launch(const Part& action) {
    auto bundleID = text(action, BindingKey::bundleID);
    auto name = text(action, BindingKey::name);
    if (!bundleID || !name) {
        return std::nullopt;
    }
    return LaunchApp{std::move(*bundleID), std::move(*name)};
}

std::optional<BindingScope> BindingObjectDecoder::scope(const Part& binding) {
    const auto own = part(binding, BindingKey::scope, "scope.");
    const auto kind = own ? text(*own, BindingKey::kind) : std::nullopt;
    if (!kind) {
        return std::nullopt;
    }
    if (*kind == "global") {
        return GlobalScope{};
    }
    if (*kind != "app") {
        failText(*own, BindingKey::kind, *kind, "a kind of scope");
        return std::nullopt;
    }
    auto bundleID = text(*own, BindingKey::bundleID);
    auto name = text(*own, BindingKey::name);
    if (!bundleID || !name) {
        return std::nullopt;
    }
    return AppScope{std::move(*bundleID), std::move(*name)};
}

std::optional<BindingObjectDecoder::Part> BindingObjectDecoder::part(const Part& of, BindingKey key,
                                                                     std::string_view prefix) {
    auto* const object = valueOf<std::unique_ptr<BindingObject>>(of, key, "an object");
    return object != nullptr ? std::optional<Part>({**object, prefix}) : std::nullopt;
}

std::optional<std::string> BindingObjectDecoder::text(const Part& part, BindingKey key) {
    auto* const value = valueOf<std::string>(part, key, "a text");
    return value != nullptr ? std::optional(std::move(*value)) : std::nullopt;
}

std::optional<bool> BindingObjectDecoder::flag(const Part& part, BindingKey key) {
    const auto* const value = valueOf<bool>(part, key, "true or false");
    return value != nullptr ? std::optional(*value) : std::nullopt;
}

std::optional<std::uint64_t> BindingObjectDecoder::integer(const Part& part, BindingKey key,
                                                           std::uint64_t max) {
    const std::string wanted = "an integer from 0 to " + std::to_string(max);
    const auto* const value = valueOf<std::uint64_t>(part, key, wanted);
    if (value == nullptr) {
        return std::nullopt;
    }
    if (*value > max) {
        fail(part, key, std::to_string(*value) + " is not " + wanted);
        return std::nullopt;
    }
    return *value;
}

template <typename Value>
Value* BindingObjectDecoder::valueOf(const Part& part, BindingKey key, std::string_view wanted) {
    BindingValue& value = part.object[key];
    auto* const found = std::get_if<Value>(&value);
    if (found == nullptr) {
        fail(part, key,
             std::holds_alternative<AbsentValue>(value) ? "missing" : "not " + std::string(wanted));
    }
    return found;
}

void BindingObjectDecoder::fail(const Part& part, BindingKey key, std::string_view what) {
    if (_reason.empty()) {
        _reason.append(part.prefix)
            .append(bindingKeyNames[static_cast<std::size_t>(key)])
            .append(": ")
            .append(what);
    }
}

void BindingObjectDecoder::failText(const Part& part, BindingKey key, std::string_view text,
                                    std::string_view wanted) {
    fail(part, key, quotedForDisplay(text) + " is not " + std::string(wanted));
}

// Escaped to ASCII, because terminals also interpret control characters beyond ASCII. Each escape
// takes six characters, and an error message must fit on a line.
std::string quotedForDisplay(std::string_view text) {
    constexpr std::size_t max = 60;
    constexpr std::size_t widest = 150;
    std::string shown;
    std::size_t length = max;
    do {
        const bool whole = text.size() <= length;
        const nlohmann::json quoted(std::string(text.substr(0, length)) + (whole ? "" : "..."));
        shown = quoted.dump(-1, ' ', true, nlohmann::json::error_handler_t::replace);
        length /= 2;
    } while (shown.size() > widest);
    return shown;
}

} // namespace glidemap
