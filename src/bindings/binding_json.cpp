#include "bindings/binding_json.h"

#include "bindings/json_text.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <limits>
#include <stdexcept>
#include <utility>

namespace glidemap {

namespace {

using nlohmann::json; // sorts the keys of an object

// Objects are filled key by key. An initializer list would first build a JSON array for each pair
// of key and value.
json objectOfKind(const char* kind) {
    json object;
    object["kind"] = kind;
    return object;
}

json namedApplication(const char* kind, const std::string& bundleID, const std::string& name) {
    json object = objectOfKind(kind);
    object["bundleID"] = bundleID;
    object["name"] = name;
    return object;
}

json encoded(const KeyShortcut& shortcut) {
    json object = objectOfKind("keyboardShortcut");
    json& keys = object["shortcut"];
    keys["keyCode"] = shortcut.keyCode;
    keys["modifiers"] = shortcut.modifiers;
    return object;
}

json encoded(const LockScreen& /*action*/) {
    return objectOfKind("lockScreen");
}

json encoded(const MissionControl& /*action*/) {
    return objectOfKind("missionControl");
}

json encoded(const LaunchApp& launch) {
    return namedApplication("launchApp", launch.bundleID, launch.name);
}

json encoded(const GlobalScope& /*scope*/) {
    return objectOfKind("global");
}

json encoded(const AppScope& app) {
    return namedApplication("app", app.bundleID, app.name);
}

template <typename Variant>
json encodedCase(const Variant& variant) {
    return std::visit([](const auto& kind) { return encoded(kind); }, variant);
}

json encoded(const GestureBinding& binding) {
    json object;
    object["id"] = binding.id.text();
    object["gesture"] = rawValue(binding.gesture);
    object["action"] = encodedCase(binding.action);
    object["scope"] = encodedCase(binding.scope);
    object["enabled"] = binding.enabled;
    return object;
}

// Returns the text in quotes, shortened to fit on one line of an error message. Non-ASCII
// characters are escaped, because terminals also interpret control characters beyond ASCII. Escapes
// are long, so the text is shortened further until it fits.
std::string quotedForDisplay(std::string_view text) {
    constexpr std::size_t max = 60;
    constexpr std::size_t maxQuotedWidth = 150;
    std::string shown;
    std::size_t length = max;
    do {
        const bool whole = text.size() <= length;
        const json quoted(std::string(text.substr(0, length)) + (whole ? "" : "..."));
        shown = quoted.dump(-1, ' ', true, json::error_handler_t::replace);
        length /= 2;
    } while (shown.size() > maxQuotedWidth);
    return shown;
}

// Thrown and caught only in this file.
struct DecodingError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// One JSON object of a binding, with the prefix of its keys in error messages, such as "action.".
struct Part {
    json& object;
    std::string_view prefix;

    [[noreturn]] void fail(std::string_view key, std::string_view problem) const {
        throw DecodingError(std::string(prefix).append(key).append(": ").append(problem));
    }

    json& value(const char* key, json::value_t type, std::string_view expected) const {
        const auto found = object.find(key);
        if (found == object.end()) {
            fail(key, "missing");
        }
        if (found->type() != type) {
            fail(key, "not " + std::string(expected));
        }
        return *found;
    }

    Part part(const char* key, std::string_view prefixOfPart) const {
        return {value(key, json::value_t::object, "an object"), prefixOfPart};
    }

    // Moves the text out of the object.
    std::string text(const char* key) const {
        return std::move(value(key, json::value_t::string, "a text").get_ref<std::string&>());
    }

    template <typename Parse>
    auto parsed(const char* key, const Parse& parse, const std::string& expected) const {
        const std::string written = text(key);
        const auto found = parse(written);
        if (!found) {
            fail(key, quotedForDisplay(written) + " is not " + expected);
        }
        return *found;
    }

    template <typename Integer>
    Integer integer(const char* key) const {
        constexpr std::uint64_t max = std::numeric_limits<Integer>::max();
        static const std::string expected = "an integer from 0 to " + std::to_string(max);
        const auto read = value(key, json::value_t::number_unsigned, expected).get<std::uint64_t>();
        if (read > max) {
            fail(key, std::to_string(read) + " is not " + expected);
        }
        return static_cast<Integer>(read);
    }
};

BindingAction decodedAction(const Part& action) {
    const std::string kind = action.text("kind");
    if (kind == "keyboardShortcut") {
        const Part shortcut = action.part("shortcut", "action.shortcut.");
        return KeyShortcut{.keyCode = shortcut.integer<std::uint16_t>("keyCode"),
                           .modifiers = shortcut.integer<std::uint64_t>("modifiers")};
    }
    if (kind == "lockScreen") {
        return LockScreen{};
    }
    if (kind == "missionControl") {
        return MissionControl{};
    }
    if (kind == "launchApp") {
        return LaunchApp{.bundleID = action.text("bundleID"), .name = action.text("name")};
    }
    action.fail("kind", quotedForDisplay(kind) + " is not a kind of action");
}

BindingScope decodedScope(const Part& scope) {
    const std::string kind = scope.text("kind");
    if (kind == "global") {
        return GlobalScope{};
    }
    if (kind == "app") {
        return AppScope{.bundleID = scope.text("bundleID"), .name = scope.text("name")};
    }
    scope.fail("kind", quotedForDisplay(kind) + " is not a kind of scope");
}

GestureBinding decoded(json& object) {
    const Part binding{object, ""};
    return {.id = binding.parsed("id", Uuid::parse, "a UUID"),
            .gesture = binding.parsed("gesture", gestureTypeFromRawValue, "a gesture"),
            .action = decodedAction(binding.part("action", "action.")),
            .scope = decodedScope(binding.part("scope", "scope.")),
            .enabled =
                binding.value("enabled", json::value_t::boolean, "true or false").get<bool>()};
}

constexpr std::string_view notJson = "not JSON: ";

// A shortcut inside an action inside a binding. Deeper objects are skipped.
constexpr std::size_t maxObjectDepth = 3;

constexpr std::array<std::string_view, 11> knownKeys = {
    "id",       "gesture",  "action", "scope",   "enabled",   "kind",
    "shortcut", "bundleID", "name",   "keyCode", "modifiers",
};

// Decodes each element of the array as soon as the parser has read it. Stores only the values of
// known keys, so unknown values use no memory once they have been parsed. Stores null for a value
// whose type no known key uses.
class BindingsReader : public nlohmann::json_sax<json> {
public:
    BindingsReader() noexcept(false) = default;     // the constructor of json may throw
    BindingsReader(const BindingsReader&) = delete; // `target` points into the object itself
    BindingsReader& operator=(const BindingsReader&) = delete;

    std::vector<GestureBinding> bindings;
    std::string reason; // the first error

    bool null() override { return scalar(nullptr); }
    bool boolean(bool value) override { return scalar(value); }
    bool number_unsigned(std::uint64_t value) override { return scalar(value); }
    bool string(std::string& value) override { return scalar(std::move(value)); }
    bool binary(json::binary_t& /*value*/) override { return false; }

    // Called only for negative numbers, including "-0".
    bool number_integer(std::int64_t value) override {
        return value == 0 ? number_unsigned(0) : null();
    }

    // Also called for integers beyond 64 bits. Reads the text, because the double has lost digits.
    bool number_float(double /*value*/, const std::string& text) override {
        const auto whole = wholeNumber(text);
        return whole ? number_unsigned(*whole) : null();
    }

    bool start_object(std::size_t /*elements*/) override {
        if (!isInArray) {
            return fail("not an array");
        }
        if (skippedDepth > 0 || target == nullptr || objects.size() == maxObjectDepth) {
            return skipContainer();
        }
        *target = json::object();
        objects.push_back(target);
        return true;
    }

    bool key(std::string& name) override {
        if (skippedDepth == 0) {
            const bool isKnown =
                std::find(knownKeys.begin(), knownKeys.end(), name) != knownKeys.end();
            target = isKnown ? &(*objects.back())[std::move(name)] : nullptr;
        }
        return true;
    }

    bool end_object() override {
        if (skippedDepth > 0) {
            return end_array();
        }
        objects.pop_back();
        return !objects.empty() || decodeElement();
    }

    bool start_array(std::size_t /*elements*/) override {
        if (!isInArray) {
            return isInArray = true;
        }
        return objects.empty() ? failElement(": not an object") : skipContainer();
    }

    bool end_array() override {
        skippedDepth -= skippedDepth > 0 ? 1 : 0;
        return true;
    }

    // Stores the library's message without its prefix and without the last token, which may be as
    // long as the file.
    bool parse_error(std::size_t /*position*/, const std::string& /*lastToken*/,
                     const json::exception& error) override {
        constexpr std::size_t maxLength = 200;
        std::string_view words = error.what();
        words.remove_prefix(std::min(words.find("] ") + 2, words.size()));
        words = words.substr(0, words.find("; last read"));
        return fail(std::string(notJson) + std::string(words.substr(0, maxLength)));
    }

private:
    bool fail(std::string message) {
        reason = std::move(message);
        return false;
    }

    bool failElement(std::string_view problem) {
        return fail("[" + std::to_string(bindings.size()) + "]" + std::string(problem));
    }

    bool scalar(json value) {
        if (skippedDepth > 0) {
            return true;
        }
        if (objects.empty()) {
            return isInArray ? failElement(": not an object") : fail("not an array");
        }
        if (target != nullptr) {
            *target = std::move(value);
        }
        return true;
    }

    bool skipContainer() {
        if (skippedDepth++ == 0 && target != nullptr) {
            *target = nullptr;
        }
        return true;
    }

    bool decodeElement() {
        target = &element;
        try {
            bindings.push_back(decoded(element));
            return true;
        } catch (const DecodingError& error) {
            return failElement("." + std::string(error.what()));
        }
    }

    bool isInArray = false;
    std::size_t skippedDepth = 0; // depth inside a skipped value
    json element;
    std::vector<json*> objects; // the open objects, starting with the element
    json* target = &element;    // where the next value is stored; null for an unknown key
};

std::variant<std::vector<GestureBinding>, DecodingFailure> decodedArray(std::string_view text) {
    BindingsReader reader;
    if (!json::sax_parse(text, &reader)) {
        return DecodingFailure{std::move(reader.reason)};
    }
    return std::move(reader.bindings);
}

} // namespace

std::string encodeBindings(const std::vector<GestureBinding>& bindings) {
    constexpr int indent = 2;
    json array = json::array();
    for (const GestureBinding& binding : bindings) {
        array.push_back(encoded(binding));
    }
    // An application's name may contain any bytes. Invalid UTF-8 is replaced, because a failure
    // would lose the whole list.
    return array.dump(indent, ' ', false, json::error_handler_t::replace) + '\n';
}

std::variant<std::vector<GestureBinding>, DecodingFailure> decodeBindings(std::string_view text) {
    // The parser would treat a zero byte as the end of the text.
    if (text.find('\0') != std::string_view::npos) {
        return DecodingFailure{"not JSON: a zero byte"};
    }
    auto decoded = decodedArray(text);
    const auto* const failure = std::get_if<DecodingFailure>(&decoded);
    if (failure != nullptr && failure->reason.starts_with(notJson)) {
        if (const auto parsable = parsableJson(text)) {
            return decodedArray(*parsable);
        }
    }
    return decoded;
}

} // namespace glidemap
