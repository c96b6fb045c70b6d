#include "recording/libinput_record_file.h"

#include <linux/input-event-codes.h>
#include <yaml.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <new>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

namespace glidemap {

namespace {

constexpr std::string_view supportedVersion = "1";

// The format needs seven levels.
constexpr std::size_t maxNesting = 16;

// libinput record writes short lines with complete values, so the parser never needs to buffer
// more.
constexpr std::size_t maxBuffered = 64U << 10U;

enum class Place {
    outside, // not in the document
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

// A rule for nested nodes: inside `parent`, the map or sequence with this key is at `place`.
struct Transition {
    Place parent;
    std::string_view key; // empty: any key, or an element of a sequence
    Place place;
    bool isMap;
};

constexpr auto transitions = std::to_array<Transition>({
    {Place::outside, "", Place::file, true},
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
});

// A line number of the file, counted from 0.
using Line = std::size_t;

// Thrown to abort parsing; caught in this file.
struct ParseError {
    Line line;
    std::string message;
};

template <typename Integer>
Integer integer(Line line, std::string_view text) {
    Integer value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) {
        throw ParseError{line, "not a valid number"};
    }
    return value;
}

class Handler {
public:
    Handler(LibinputRecordFile& result, LineBuffer& source) : file(result), input(source) {}

    // Throws a ParseError if the node is not in the format.
    void take(const yaml_event_t& node);

    // Accepts the current device if it is the first touchpad. Also called when parsing ends with an
    // error, possibly within a device.
    void finishDevice();

private:
    struct Level {
        Place place = Place::outside;
        Line line;
        bool isMap = false;
        bool expectsKey = false; // in a map, the next scalar is a key
        std::string key{};
        std::size_t elements = 0; // number of complete elements
    };

    static const Transition* transitionFrom(const Level* parent);
    void start(Line line, bool isMap);
    void end();
    void scalar(Line line, const std::string& value);
    void completeValue();
    void take(const Level& parent, Line line, const std::string& value);
    void takeAxisElement(const Level& axis, Line line, const std::string& value);
    void takeEventElement(std::size_t element, Line line, const std::string& value);
    void finishEvent(const Level& event);
    bool isTouchpad() const;

    LibinputRecordFile& file;
    LineBuffer& input;
    std::vector<Level> levels;

    // The device that is being parsed.
    PadCapabilities device;
    bool hasUdevProperties = false;
    bool udevReportsTouchpad = false;
    AxisRange axis;
    InputEvent event;
};

void rejectAnchor(Line line, const yaml_char_t* anchor) {
    if (anchor != nullptr) {
        throw ParseError{line, "anchors are not supported"};
    }
}

void Handler::take(const yaml_event_t& node) {
    const Line line = node.start_mark.line;
    switch (node.type) {
    case YAML_ALIAS_EVENT:
        throw ParseError{line, "aliases are not supported"};
    case YAML_SCALAR_EVENT:
        rejectAnchor(line, node.data.scalar.anchor);
        scalar(line,
               {reinterpret_cast<const char*>(node.data.scalar.value), node.data.scalar.length});
        break;
    case YAML_SEQUENCE_START_EVENT:
        rejectAnchor(line, node.data.sequence_start.anchor);
        start(line, false);
        break;
    case YAML_MAPPING_START_EVENT:
        rejectAnchor(line, node.data.mapping_start.anchor);
        start(line, true);
        break;
    case YAML_SEQUENCE_END_EVENT:
    case YAML_MAPPING_END_EVENT:
        end();
        break;
    default:
        break;
    }
}

const Transition* Handler::transitionFrom(const Level* parent) {
    const Place place = parent != nullptr ? parent->place : Place::outside;
    for (const Transition& transition : transitions) {
        if (transition.parent == place &&
            (transition.key.empty() || (parent->isMap && transition.key == parent->key))) {
            return &transition;
        }
    }
    return nullptr;
}

void Handler::start(Line line, bool isMap) {
    input.progress();
    if (levels.size() == maxNesting) {
        throw ParseError{line, "values are nested more than 16 deep"};
    }
    Level* parent = levels.empty() ? nullptr : &levels.back();
    if (parent != nullptr && parent->expectsKey) {
        throw ParseError{line, "not in the format of libinput record: a key is not a scalar"};
    }
    const Transition* transition = transitionFrom(parent);
    if (transition != nullptr && transition->isMap != isMap) {
        throw ParseError{line,
                         isMap ? "not in the format of libinput record: expected a list"
                               : "not in the format of libinput record: expected keys and values"};
    }
    Place place = transition != nullptr ? transition->place : Place::ignored;
    if (place == Place::device && file.touchpad) {
        place = Place::ignored; // only the first touchpad is used
    }
    if (place == Place::device) {
        device = {};
        hasUdevProperties = udevReportsTouchpad = false;
        file.events.clear();
    }
    levels.push_back({.place = place, .line = line, .isMap = isMap, .expectsKey = isMap});
}

void Handler::end() {
    const Level level = std::move(levels.back());
    levels.pop_back();
    if (level.place == Place::device) {
        finishDevice();
    } else if (level.place == Place::event) {
        finishEvent(level);
    } else if (level.place == Place::axis) {
        device.axes[integer<std::uint16_t>(level.line, levels.back().key)] = axis;
        axis = {};
    }
    completeValue();
}

void Handler::scalar(Line line, const std::string& value) {
    input.progress();
    if (levels.empty()) {
        throw ParseError{line, "not in the format of libinput record: expected keys and values"};
    }
    Level& parent = levels.back();
    if (parent.expectsKey) {
        parent.key = value;
        parent.expectsKey = false;
        return;
    }
    take(parent, line, value);
    completeValue();
}

// Called when a value is complete: the next node is a key in a map, or the next element of a
// sequence.
void Handler::completeValue() {
    if (!levels.empty()) {
        levels.back().expectsKey = levels.back().isMap;
        ++levels.back().elements;
    }
}

void Handler::take(const Level& parent, Line line, const std::string& value) {
    switch (parent.place) {
    case Place::file:
        if (parent.key == "version" && value != supportedVersion) {
            throw ParseError{line, "version " + value +
                                       " of libinput's recording format is not supported, only "
                                       "version 1"};
        }
        break;
    case Place::evdev:
        if (parent.key == "name") {
            device.name = value;
        }
        break;
    case Place::properties:
        if (const auto property = integer<std::uint32_t>(line, value); property < 64) {
            device.properties |= std::uint64_t{1} << property;
        }
        break;
    case Place::udevProperties:
        hasUdevProperties = true;
        udevReportsTouchpad = udevReportsTouchpad || value == "ID_INPUT_TOUCHPAD=1";
        break;
    case Place::axis:
        takeAxisElement(parent, line, value);
        break;
    case Place::event:
        takeEventElement(parent.elements, line, value);
        break;
    default:
        break;
    }
}

void Handler::takeAxisElement(const Level& level, Line line, const std::string& value) {
    const auto number = integer<std::int32_t>(line, value);
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

void Handler::takeEventElement(std::size_t element, Line line, const std::string& value) {
    switch (element) {
    case 0:
        event.time = integer<std::uint32_t>(line, value);
        break;
    case 1:
        event.time += integer<std::uint32_t>(line, value) * 1e-6;
        break;
    case 2:
        event.type = integer<std::uint16_t>(line, value);
        break;
    case 3:
        event.code = integer<std::uint16_t>(line, value);
        break;
    case 4:
        event.value = integer<std::int32_t>(line, value);
        break;
    default:
        break;
    }
}

void Handler::finishEvent(const Level& level) {
    if (level.elements != 5) {
        throw ParseError{level.line, "an event is not [seconds, microseconds, type, code, value]"};
    }
    file.events.push_back(event);
}

// If the recording lacks udev's properties, every device with slots that is not a touchscreen
// counts as a touchpad.
bool Handler::isTouchpad() const {
    if (hasUdevProperties) {
        return udevReportsTouchpad;
    }
    return device.axes.contains(ABS_MT_SLOT) && !device.hasProperty(INPUT_PROP_DIRECT);
}

void Handler::finishDevice() {
    if (!file.touchpad && isTouchpad()) {
        file.touchpad = device;
    }
}

// Passes lines to the parser as they arrive. The parser is a C library, so no exception may escape.
int readMore(void* source, unsigned char* target, std::size_t size, std::size_t* count) noexcept {
    LineBuffer& buffer = *static_cast<LineBuffer*>(source);
    try {
        const bool isAtEnd =
            LineBuffer::traits_type::eq_int_type(buffer.sgetc(), LineBuffer::traits_type::eof());
        const auto available = isAtEnd ? 0 : static_cast<std::size_t>(buffer.in_avail());
        const auto wanted = static_cast<std::streamsize>(std::min(size, available));
        *count = static_cast<std::size_t>(buffer.sgetn(reinterpret_cast<char*>(target), wanted));
        return 1;
    } catch (const std::bad_alloc&) {
        return 0;
    }
}

class Parser {
public:
    explicit Parser(LineBuffer& source) {
        if (yaml_parser_initialize(&parser) == 0) {
            throw std::bad_alloc();
        }
        yaml_parser_set_input(&parser, readMore, &source);
    }
    Parser(const Parser&) = delete;
    Parser& operator=(const Parser&) = delete;
    ~Parser() { yaml_parser_delete(&parser); }

    // Parses up to the end of the first document. Throws a ParseError on failure.
    void parse(Handler& handler) {
        bool isDone = false;
        while (!isDone) {
            Event event;
            if (yaml_parser_parse(&parser, &event.event) == 0) {
                throw ParseError{problemLine(), problem()};
            }
            handler.take(event.event);
            isDone = event.event.type == YAML_DOCUMENT_END_EVENT ||
                     event.event.type == YAML_STREAM_END_EVENT;
        }
    }

private:
    struct Event {
        Event() = default;
        Event(const Event&) = delete;
        Event& operator=(const Event&) = delete;
        ~Event() { yaml_event_delete(&event); }
        yaml_event_t event{};
    };

    // The library sets no problem mark for a reader error (invalid bytes), so use the parser's
    // position.
    Line problemLine() const {
        return parser.error == YAML_READER_ERROR ? parser.mark.line : parser.problem_mark.line;
    }
    std::string problem() const {
        return std::string("not valid YAML: ") +
               (parser.problem != nullptr ? parser.problem : "out of memory");
    }

    yaml_parser_t parser{};
};

} // namespace

LibinputRecordFile parseLibinputRecord(LineReader& lines) {
    LibinputRecordFile file;
    LineBuffer buffer(lines, maxBuffered);
    Handler handler(file, buffer);
    try {
        Parser(buffer).parse(handler);
    } catch (const ParseError& refusal) {
        file.error = RecordingError{lines.name(), static_cast<std::int64_t>(refusal.line) + 1,
                                    refusal.message};
    }
    // If the input ended early, that caused the parser's error: report the input's error instead.
    if (buffer.isBufferExceeded()) {
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
