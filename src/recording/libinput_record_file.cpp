#include "recording/libinput_record_file.h"

#include "recording/line_buffer.h"

#include <linux/input-event-codes.h>
#include <yaml-cpp/eventhandler.h>
#include <yaml-cpp/exceptions.h>
#include <yaml-cpp/mark.h>
#include <yaml-cpp/parser.h>

#include <array>
#include <charconv>
#include <exception>
#include <istream>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

namespace glidemap {

namespace {

constexpr std::string_view supportedVersion = "1";

// The format itself needs seven levels.
constexpr std::size_t deepestNesting = 16;

// Lines of libinput record are short, and each is complete.
constexpr std::size_t mostHoarded = 64U << 10U;

enum class Place {
    nowhere, // outside the document
    ignored,
    file,
    devices,
    device,
    evdev,
    axes,
    axis,
    properties,
    udev,
    udevProperties,
    events,
    eventGroup,
    eventList,
    event,
};

// Where a map or a sequence stands, from where the one around it stands and the key it has there.
struct Step {
    Place around;
    std::string_view key; // empty: any, or an element of a sequence
    Place place;
    bool isMap;
};

constexpr Step steps[] = {
    {Place::nowhere, "", Place::file, true},
    {Place::file, "devices", Place::devices, false},
    {Place::devices, "", Place::device, true},
    {Place::device, "evdev", Place::evdev, true},
    {Place::device, "udev", Place::udev, true},
    {Place::device, "events", Place::events, false},
    {Place::evdev, "absinfo", Place::axes, true},
    {Place::evdev, "properties", Place::properties, false},
    {Place::axes, "", Place::axis, false},
    {Place::udev, "properties", Place::udevProperties, false},
    {Place::events, "", Place::eventGroup, true},
    {Place::eventGroup, "evdev", Place::eventList, false},
    {Place::eventList, "", Place::event, false},
};

// Stops the parser; never leaves this file.
struct Refusal {
    YAML::Mark mark;
    std::string message;
};

template <typename Integer>
Integer integer(const YAML::Mark& mark, std::string_view text) {
    Integer value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) {
        throw Refusal{mark, "not a number that belongs here"};
    }
    return value;
}

class Handler : public YAML::EventHandler {
public:
    Handler(LibinputRecordFile& result, LineBuffer& source) : file(result), input(source) {}

    // Takes the touchpad over from a device whose end was not reached.
    void finishDevice();

    void OnDocumentStart(const YAML::Mark& /*mark*/) override {}
    void OnDocumentEnd() override {}
    void OnNull(const YAML::Mark& mark, YAML::anchor_t /*anchor*/) override { scalar(mark, ""); }
    void OnAnchor(const YAML::Mark& mark, const std::string& /*name*/) override {
        throw Refusal{mark, "anchors are not supported"};
    }
    void OnAlias(const YAML::Mark& mark, YAML::anchor_t /*anchor*/) override {
        throw Refusal{mark, "aliases are not supported"};
    }
    void OnScalar(const YAML::Mark& mark, const std::string& /*tag*/, YAML::anchor_t /*anchor*/,
                  const std::string& value) override {
        scalar(mark, value);
    }
    void OnSequenceStart(const YAML::Mark& mark, const std::string& /*tag*/,
                         YAML::anchor_t /*anchor*/, YAML::EmitterStyle::value /*style*/) override {
        start(mark, false);
    }
    void OnSequenceEnd() override { end(); }
    void OnMapStart(const YAML::Mark& mark, const std::string& /*tag*/, YAML::anchor_t /*anchor*/,
                    YAML::EmitterStyle::value /*style*/) override {
        start(mark, true);
    }
    void OnMapEnd() override { end(); }

private:
    struct Level {
        Place place = Place::nowhere;
        YAML::Mark mark;
        bool isMap = false;
        bool keyComes = false; // in a map, the next scalar is a key
        std::string key{};
        std::size_t elements = 0; // so far
    };

    static const Step* stepFrom(const Level* around);
    void start(const YAML::Mark& mark, bool isMap);
    void end();
    void scalar(const YAML::Mark& mark, const std::string& value);
    void valueTaken();
    void take(const Level& around, const YAML::Mark& mark, const std::string& value);
    void takeAxisElement(const Level& axis, const YAML::Mark& mark, const std::string& value);
    void takeEventElement(std::size_t element, const YAML::Mark& mark, const std::string& value);
    void finishEvent(const Level& event);
    bool isTouchpad() const;

    LibinputRecordFile& file;
    LineBuffer& input;
    std::vector<Level> levels;

    // Of the device that is being read.
    PadCapabilities device;
    bool udevTold = false;
    bool udevSaysTouchpad = false;
    AxisRange axis;
    InputEvent event;
};

const Step* Handler::stepFrom(const Level* around) {
    const Place place = around != nullptr ? around->place : Place::nowhere;
    for (const Step& step : steps) {
        if (step.around == place &&
            (step.key.empty() || (around->isMap && step.key == around->key))) {
            return &step;
        }
    }
    return nullptr;
}

void Handler::start(const YAML::Mark& mark, bool isMap) {
    input.progress();
    if (levels.size() == deepestNesting) {
        throw Refusal{mark, "values are nested more than 16 deep"};
    }
    Level* around = levels.empty() ? nullptr : &levels.back();
    if (around != nullptr && around->keyComes) {
        throw Refusal{mark, "not as libinput record writes it: a key is not a word"};
    }
    const Step* step = stepFrom(around);
    if (step != nullptr && step->isMap != isMap) {
        throw Refusal{mark, isMap
                                ? "not as libinput record writes it: a list belongs here"
                                : "not as libinput record writes it: keys and values belong here"};
    }
    Place place = step != nullptr ? step->place : Place::ignored;
    if (place == Place::device && file.touchpad) {
        place = Place::ignored; // the first touchpad is enough
    }
    if (place == Place::device) {
        device = {};
        udevTold = udevSaysTouchpad = false;
        file.events.clear();
    }
    levels.push_back({.place = place, .mark = mark, .isMap = isMap, .keyComes = isMap});
}

void Handler::end() {
    const Level level = std::move(levels.back());
    levels.pop_back();
    if (level.place == Place::device) {
        finishDevice();
    } else if (level.place == Place::event) {
        finishEvent(level);
    } else if (level.place == Place::axis) {
        device.axes[integer<std::uint16_t>(level.mark, levels.back().key)] = axis;
        axis = {};
    }
    valueTaken();
}

void Handler::scalar(const YAML::Mark& mark, const std::string& value) {
    input.progress();
    if (levels.empty()) {
        throw Refusal{mark, "not as libinput record writes it: keys and values belong here"};
    }
    Level& around = levels.back();
    if (around.keyComes) {
        around.key = value;
        around.keyComes = false;
        return;
    }
    take(around, mark, value);
    valueTaken();
}

// A value is complete: what follows in its map is a key, in its sequence the next element.
void Handler::valueTaken() {
    if (!levels.empty()) {
        levels.back().keyComes = levels.back().isMap;
        ++levels.back().elements;
    }
}

void Handler::take(const Level& around, const YAML::Mark& mark, const std::string& value) {
    switch (around.place) {
    case Place::file:
        if (around.key == "version" && value != supportedVersion) {
            throw Refusal{mark, "version " + value +
                                    " of libinput's recording format is not supported, only "
                                    "version 1"};
        }
        break;
    case Place::evdev:
        if (around.key == "name") {
            device.name = value;
        }
        break;
    case Place::properties:
        if (const auto property = integer<std::uint32_t>(mark, value); property < 64) {
            device.properties |= std::uint64_t{1} << property;
        }
        break;
    case Place::udevProperties:
        udevTold = true;
        udevSaysTouchpad = udevSaysTouchpad || value == "ID_INPUT_TOUCHPAD=1";
        break;
    case Place::axis:
        takeAxisElement(around, mark, value);
        break;
    case Place::event:
        takeEventElement(around.elements, mark, value);
        break;
    default:
        break;
    }
}

void Handler::takeAxisElement(const Level& level, const YAML::Mark& mark,
                              const std::string& value) {
    const auto number = integer<std::int32_t>(mark, value);
    switch (level.elements) {
    case 0:
        axis.minimum = number;
        break;
    case 1:
        axis.maximum = number;
        break;
    case 4:
        axis.resolution = number;
        break;
    default:
        break;
    }
}

void Handler::takeEventElement(std::size_t element, const YAML::Mark& mark,
                               const std::string& value) {
    switch (element) {
    case 0:
        event.time = integer<std::uint32_t>(mark, value);
        break;
    case 1:
        event.time += integer<std::uint32_t>(mark, value) * 1e-6;
        break;
    case 2:
        event.type = integer<std::uint16_t>(mark, value);
        break;
    case 3:
        event.code = integer<std::uint16_t>(mark, value);
        break;
    case 4:
        event.value = integer<std::int32_t>(mark, value);
        break;
    default:
        break;
    }
}

void Handler::finishEvent(const Level& level) {
    if (level.elements != 5) {
        throw Refusal{level.mark, "an event is not [seconds, microseconds, type, code, value]"};
    }
    file.events.push_back(event);
}

// Where the recording does not have udev's word, a pad that is not a touchscreen counts.
bool Handler::isTouchpad() const {
    if (udevTold) {
        return udevSaysTouchpad;
    }
    return device.axes.contains(ABS_MT_SLOT) && !device.hasProperty(INPUT_PROP_DIRECT);
}

void Handler::finishDevice() {
    if (!file.touchpad && isTouchpad()) {
        file.touchpad = device;
    }
}

} // namespace

LibinputRecordFile parseLibinputRecord(LineReader& lines) {
    LibinputRecordFile file;
    LineBuffer buffer(lines, mostHoarded);
    std::istream stream(&buffer);
    Handler handler(file, buffer);
    const auto refuse = [&](const YAML::Mark& mark, std::string message) {
        file.error = RecordingError{lines.name(), mark.line + 1, std::move(message)};
    };
    try {
        YAML::Parser(stream).HandleNextDocument(handler);
    } catch (const Refusal& refusal) {
        refuse(refusal.mark, refusal.message);
    } catch (const YAML::Exception& problem) {
        refuse(problem.mark, "not valid YAML: " + problem.msg);
    } catch (const std::exception& problem) {
        refuse(YAML::Mark::null_mark(), std::string("not valid YAML: ") + problem.what());
    }
    // A stream that ended early is the reason for whatever the parser made of its end.
    if (buffer.isStuck()) {
        file.error = lines.errorHere("64 KiB without a complete value");
    } else if (lines.error()) {
        file.error = lines.error();
    }
    if (file.error) {
        handler.finishDevice();
    }
    return file;
}

} // namespace glidemap
