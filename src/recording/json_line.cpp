#include "recording/json_line.h"

#include <nlohmann/json.hpp>

#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace glidemap {

namespace {

using nlohmann::json;

constexpr std::int64_t supportedVersion = 1;

// Unknown values may be nested up to this depth. The parser keeps one bit per level, so this is
// only a sanity check.
constexpr int maxNesting = 64;

enum class Key {
    time,
    touches,
    button,
    down,
    frontmost,
    version,
    device,
    unknown,
};

Key keyNamed(std::string_view name) {
    constexpr auto keys = std::to_array<std::pair<std::string_view, Key>>({
        {"t", Key::time},
        {"touches", Key::touches},
        {"button", Key::button},
        {"down", Key::down},
        {"frontmost", Key::frontmost},
        {"glidemap-recording", Key::version},
        {"device", Key::device},
    });
    for (const auto& [known, key] : keys) {
        if (known == name) {
            return key;
        }
    }
    return Key::unknown;
}

// A value that is neither an object nor an array.
struct Scalar {
    enum class Type {
        null,
        boolean,
        integer,
        real, // including integers beyond 64 bits
        text,
    };

    Type type = Type::null;
    bool flag = false;
    std::int64_t whole = 0;
    double number = 0;
    std::string* characters = nullptr;

    bool isNumber() const { return type == Type::integer || type == Type::real; }
    bool is32Bit() const {
        using Limits = std::numeric_limits<std::int32_t>;
        return type == Type::integer && whole >= Limits::min() && whole <= Limits::max();
    }
};

// Handles the values of a line in text order. Keeps only the values that a record needs.
class LineHandler : public nlohmann::json_sax<json> {
public:
    LineHandler(std::size_t length, JsonLine& result) : textLength(length), line(result) {}

    // Call after the whole line has been parsed. Returns an error message, or nullopt on success.
    std::optional<std::string> finish();
    std::optional<std::string> takeProblem() { return std::move(problem); }

    bool null() override { return scalar({}); }
    bool boolean(bool value) override {
        return scalar({.type = Scalar::Type::boolean, .flag = value});
    }
    bool number_integer(std::int64_t value) override {
        return scalar(
            {.type = Scalar::Type::integer, .whole = value, .number = static_cast<double>(value)});
    }
    bool number_unsigned(std::uint64_t value) override;
    bool number_float(double value, const std::string& /*text*/) override {
        return scalar({.type = Scalar::Type::real, .number = value});
    }
    bool string(std::string& value) override {
        return scalar({.type = Scalar::Type::text, .characters = &value});
    }
    bool binary(json::binary_t& /*value*/) override { return false; }
    bool start_object(std::size_t /*elements*/) override;
    bool end_object() override { return leave(); }
    bool start_array(std::size_t /*elements*/) override;
    bool end_array() override { return leave(); }
    bool key(std::string& name) override;
    bool parse_error(std::size_t position, const std::string& lastToken,
                     const json::exception& error) override;

private:
    // The position of the next value in the line's structure.
    enum class Place {
        outside,
        line,
        touches,
        touch,
        application,
        unknown, // inside an unknown value
    };

    bool fail(std::string message);
    bool failTouch(const char* message);
    bool failKey();
    bool scalar(const Scalar& value);
    bool lineScalar(const Scalar& value);
    bool touchScalar(const Scalar& value);
    bool applicationScalar(const Scalar& value);
    bool enterUnknown();
    bool startTouch();
    bool leave();
    bool leaveTouch();

    std::size_t textLength;
    JsonLine& line;
    Place place = Place::outside;
    Place placeAroundUnknown = Place::outside;
    int unknownDepth = 0;
    Key lineKey = Key::unknown;
    std::string applicationKey;
    int touchElement = 0;

    bool hasTime = false;
    bool hasVersion = false;
    bool hasTouches = false;
    bool hasButton = false;
    bool hasDown = false;
    bool hasFrontmost = false;
    bool hasBundleID = false;
    std::optional<std::string> problem;
};

bool LineHandler::fail(std::string message) {
    problem = std::move(message);
    return false;
}

bool LineHandler::failTouch(const char* message) {
    return fail("touch " + std::to_string(line.touches.size()) + ": " + message);
}

bool LineHandler::number_unsigned(std::uint64_t value) {
    if (value > static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max())) {
        return scalar({.type = Scalar::Type::real, .number = static_cast<double>(value)});
    }
    return number_integer(static_cast<std::int64_t>(value));
}

bool LineHandler::scalar(const Scalar& value) {
    switch (place) {
    case Place::outside:
        return fail("not a JSON object");
    case Place::line:
        return lineScalar(value);
    case Place::touches:
        return startTouch() && failTouch("not an array of [identifier, x, y, state]");
    case Place::touch:
        return touchScalar(value);
    case Place::application:
        return applicationScalar(value);
    case Place::unknown:
        return true;
    }
    return false;
}

// Reports a type error in the value of the current key.
bool LineHandler::failKey() {
    switch (lineKey) {
    case Key::time:
        return fail("\"t\" is not a number");
    case Key::touches:
        return fail("\"touches\" is not an array");
    case Key::button:
        return fail("\"button\" is not a 32-bit integer");
    case Key::down:
        return fail("\"down\" is neither true nor false");
    case Key::frontmost:
        return fail("\"frontmost\" is neither an object nor null");
    case Key::version:
        return fail("\"glidemap-recording\" is not a version number");
    case Key::device:
    case Key::unknown:
        break;
    }
    return false;
}

bool LineHandler::lineScalar(const Scalar& value) {
    switch (lineKey) {
    case Key::time:
        line.time = value.number;
        hasTime = value.isNumber();
        return hasTime || failKey();
    case Key::button:
        line.button = static_cast<std::int32_t>(value.is32Bit() ? value.whole : 0);
        hasButton = value.is32Bit();
        return hasButton || failKey();
    case Key::down:
        line.down = value.flag;
        hasDown = value.type == Scalar::Type::boolean;
        return hasDown || failKey();
    case Key::frontmost:
        line.application.reset();
        hasFrontmost = value.type == Scalar::Type::null;
        return hasFrontmost || failKey();
    case Key::version:
        hasVersion = value.type == Scalar::Type::integer;
        if (hasVersion && value.whole != supportedVersion) {
            return fail("version " + std::to_string(value.whole) +
                        " of the recording format is not supported, only version 1");
        }
        return hasVersion || failKey();
    case Key::device:
        line.device = value.type == Scalar::Type::text ? *value.characters : std::string();
        return true;
    case Key::touches:
        return failKey();
    case Key::unknown:
        return true;
    }
    return false;
}

bool LineHandler::startTouch() {
    if (line.touches.size() == maxTouches) {
        return fail("more than 65536 touches");
    }
    line.touches.emplace_back();
    touchElement = 0;
    return true;
}

bool LineHandler::touchScalar(const Scalar& value) {
    MTTouch& touch = line.touches.back();
    const bool isFloat =
        value.isNumber() && std::abs(value.number) <= std::numeric_limits<float>::max();
    switch (touchElement++) {
    case 0:
        touch.identifier = static_cast<std::int32_t>(value.whole);
        return value.is32Bit() || failTouch("the identifier is not a 32-bit integer");
    case 1:
        touch.normalized.pos.x = isFloat ? static_cast<float>(value.number) : 0;
        return isFloat || failTouch("x is not a valid position");
    case 2:
        touch.normalized.pos.y = isFloat ? static_cast<float>(value.number) : 0;
        return isFloat || failTouch("y is not a valid position");
    case 3:
        touch.state = static_cast<std::int32_t>(value.whole);
        return value.is32Bit() || failTouch("the state is not a 32-bit integer");
    default:
        return failTouch("more than the four elements [identifier, x, y, state]");
    }
}

bool LineHandler::applicationScalar(const Scalar& value) {
    const bool isText = value.type == Scalar::Type::text;
    if (applicationKey == "bundleID") {
        hasBundleID = isText;
        if (!isText) {
            return fail(R"(the "bundleID" of "frontmost" is not a string)");
        }
        line.application->bundleID = *value.characters;
    } else if (applicationKey == "name") {
        if (!isText) {
            return fail(R"(the "name" of "frontmost" is not a string)");
        }
        line.application->name = *value.characters;
    }
    return true;
}

bool LineHandler::key(std::string& name) {
    if (place == Place::line) {
        lineKey = keyNamed(name);
    } else if (place == Place::application) {
        applicationKey = name;
    }
    return true;
}

bool LineHandler::enterUnknown() {
    if (place != Place::unknown) {
        placeAroundUnknown = std::exchange(place, Place::unknown);
    }
    return ++unknownDepth <= maxNesting || fail("values are nested more than 64 deep");
}

bool LineHandler::start_object(std::size_t /*elements*/) {
    switch (place) {
    case Place::outside:
        place = Place::line;
        return true;
    case Place::line:
        if (lineKey == Key::frontmost) {
            place = Place::application;
            line.application.emplace();
            hasFrontmost = true;
            hasBundleID = false;
            return true;
        }
        return lineKey == Key::unknown || lineKey == Key::device ? enterUnknown() : failKey();
    case Place::application:
        return applicationKey != "bundleID" && applicationKey != "name" ? enterUnknown()
                                                                        : applicationScalar({});
    case Place::touches:
    case Place::touch:
        return scalar({});
    case Place::unknown:
        return enterUnknown();
    }
    return false;
}

bool LineHandler::start_array(std::size_t elements) {
    if (place == Place::outside) {
        return fail("not a JSON object");
    }
    if (place == Place::line && lineKey == Key::touches) {
        place = Place::touches;
        hasTouches = true;
        line.touches.clear();
        return true;
    }
    if (place == Place::touches) {
        place = Place::touch;
        return startTouch();
    }
    if (place == Place::line && lineKey == Key::frontmost) {
        return failKey();
    }
    return start_object(elements);
}

bool LineHandler::leave() {
    switch (place) {
    case Place::unknown:
        if (--unknownDepth == 0) {
            place = placeAroundUnknown;
        }
        return true;
    case Place::touch:
        return leaveTouch();
    case Place::application:
        place = Place::line;
        return hasBundleID || fail(R"("frontmost" has no "bundleID")");
    case Place::touches:
        place = Place::line;
        return true;
    case Place::line:
    case Place::outside:
        place = Place::outside;
        return true;
    }
    return false;
}

bool LineHandler::leaveTouch() {
    place = Place::touches;
    return touchElement == 4 || failTouch("fewer than the four elements [identifier, x, y, state]");
}

bool LineHandler::parse_error(std::size_t position, const std::string& /*lastToken*/,
                              const json::exception& error) {
    constexpr int numberOutOfRange = 406;
    if (position > textLength) {
        return fail("the line ends before its JSON does");
    }
    const char* what = error.id == numberOutOfRange ? "a number is out of range" : "not valid JSON";
    return fail(std::string(what) + " at column " + std::to_string(position));
}

std::optional<std::string> LineHandler::finish() {
    if (hasVersion) {
        line.kind = JsonLine::Kind::head;
        return std::nullopt;
    }
    if (!hasTime) {
        return "no time \"t\"";
    }
    if (hasTouches + hasButton + hasFrontmost > 1) {
        return R"(more than one of "touches", "button" and "frontmost")";
    }
    if (hasButton != hasDown) {
        return hasButton ? R"("button" without "down")" : R"("down" without "button")";
    }
    line.kind = hasTouches     ? JsonLine::Kind::report
                : hasButton    ? JsonLine::Kind::button
                : hasFrontmost ? JsonLine::Kind::frontmost
                               : JsonLine::Kind::time;
    for (MTTouch& touch : line.touches) {
        touch.timestamp = line.time;
    }
    return std::nullopt;
}

} // namespace

std::optional<std::string> parseJsonLine(std::string_view text, JsonLine& line) {
    // The parser treats a zero byte as the end of its input.
    if (const auto zero = text.find('\0'); zero != std::string_view::npos) {
        return "not valid JSON at column " + std::to_string(zero + 1);
    }
    line.touches.clear();
    line.application.reset();
    line.device.clear();
    LineHandler handler(text.size(), line);
    if (!json::sax_parse(text.begin(), text.end(), &handler)) {
        return handler.takeProblem();
    }
    return handler.finish();
}

} // namespace glidemap
