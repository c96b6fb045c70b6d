#include "printer.h"

#include <nlohmann/json.hpp>

#include <array>
#include <cstdio>
#include <optional>
#include <string_view>
#include <variant>

namespace glidemap::replay {

namespace {

// Returns the text as a JSON string.
std::string quoted(const std::string& text) {
    // Replaces invalid UTF-8, because a file name may contain any bytes.
    return nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

// Recordings have microsecond precision; more digits would only show rounding errors.
std::string seconds(double time) {
    std::array<char, 400> digits{}; // room for the longest double
    std::snprintf(digits.data(), digits.size(), "%.6f", time);
    std::string text = digits.data();
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) {
        text.pop_back();
    }
    return text == "-0" ? "0" : text;
}

std::string quotedOrNull(const std::optional<std::string>& text) {
    return text ? quoted(*text) : "null";
}

const char* boolean(bool value) {
    return value ? "true" : "false";
}

std::string opened(double time) {
    return R"({"t":)" + seconds(time) + ",";
}

// Starts the JSON object of a gesture; the caller adds fields and closes it.
std::string openRecognition(const Recognised& recognised) {
    return opened(recognised.time) + R"("gesture":")" + std::string(rawValue(recognised.gesture)) +
           R"(","delivered":)" + boolean(recognised.delivered);
}

struct Json {
    std::string operator()(const Recognised& recognised) const {
        const Routing& routing = recognised.routing;
        const std::string routed = R"(,"binding":)" + quotedOrNull(routing.bindingID) +
                                   R"(,"action":)" + quotedOrNull(routing.action) + R"(,"app":)" +
                                   quotedOrNull(routing.app);
        return openRecognition(recognised) + (recognised.delivered ? routed : "") + "}";
    }

    std::string operator()(const ButtonChanged& button) const {
        return opened(button.time) + R"("button":)" + std::to_string(button.button) +
               R"(,"down":)" + boolean(button.down) + R"(,"swallowed":)" +
               boolean(button.swallowed) + "}";
    }

    std::string operator()(const KeyPosted& key) const {
        return opened(key.time) + R"("keyEvent":{"keyCode":)" + std::to_string(key.event.keyCode) +
               R"(,"down":)" + boolean(key.event.down) + R"(,"flags":)" +
               std::to_string(key.event.flags) + "}}";
    }

    std::string operator()(const Performed& performed) const {
        return opened(performed.time) + R"("perform":)" + std::visit(*this, performed.action) + "}";
    }

    std::string operator()(const LaunchApp& launch) const {
        return R"("launchApp","bundleID":)" + quoted(launch.bundleID) + R"(,"name":)" +
               quoted(launch.name);
    }
    std::string operator()(const LockScreen& /*all of it*/) const { return R"("lockScreen")"; }
    std::string operator()(const MissionControl& /*all of it*/) const {
        return R"("missionControl")";
    }
};

// Returns a line with time, event and description.
std::string row(double time, std::string_view event, const std::string& description) {
    std::array<char, 400> start{};
    std::snprintf(start.data(), start.size(), "%12.3f  %-26.*s  ", time,
                  static_cast<int>(event.size()), event.data());
    return start.data() + description;
}

std::string arrow(const Routing& routing) {
    if (!routing.action) {
        return "";
    }
    return "  → " + *routing.action + (routing.app ? " @ " + *routing.app : "");
}

struct Text {
    std::string operator()(const Recognised& recognised) const {
        return row(recognised.time, rawValue(recognised.gesture),
                   displayName(recognised.gesture) + (recognised.delivered
                                                          ? arrow(recognised.routing)
                                                          : "  (dropped: cooldown)"));
    }

    std::string operator()(const ButtonChanged& button) const {
        if (!button.swallowed) {
            return "";
        }
        const std::string event =
            "button " + std::to_string(button.button) + (button.down ? " down" : " up");
        const std::string reason =
            button.click ? ": " + displayName(button.click->gesture) + arrow(button.click->routing)
                         : "";
        return row(button.time, event, "swallowed" + reason);
    }

    std::string operator()(const KeyPosted& /*part of the gesture line*/) const { return ""; }
    std::string operator()(const Performed& /*part of the gesture line*/) const { return ""; }
};

std::string jsonOf(const RunEvent& event) {
    return std::visit(Json(), event);
}

// Returns only the recognised gesture, without its routing.
std::string recognitionJsonOf(const Recognised& recognised) {
    return openRecognition(recognised) + "}";
}

// Returns a human-readable line. Returns an empty text for a button that is not swallowed, and for
// keys and actions, which the gesture's line already contains.
std::string textOf(const RunEvent& event) {
    return std::visit(Text(), event);
}

std::string jsonOf(const std::vector<Recognised>& outcome) {
    std::string list;
    for (const Recognised& recognised : outcome) {
        list += (list.empty() ? "" : ",") + recognitionJsonOf(recognised);
    }
    return "[" + list + "]";
}

std::string namesOf(const std::vector<Recognised>& outcome) {
    std::string names;
    for (const Recognised& recognised : outcome) {
        names += names.empty() ? "" : ", ";
        names += rawValue(recognised.gesture);
        names += recognised.delivered ? "" : " (dropped: cooldown)";
    }
    return names.empty() ? "nothing" : names;
}

void line(const std::string& text) {
    std::printf("%s\n", text.c_str());
}

} // namespace

Printer::Printer(Form form) : form(form) {
    std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
}

void Printer::printFile(const std::string& name) {
    line(isJson() ? R"({"file":)" + quoted(name) + "}" : name);
}

void Printer::print(const RunEvent& event) {
    const std::string text = isJson() ? jsonOf(event) : textOf(event);
    if (!text.empty()) {
        line(text);
    }
}

void Printer::printIntention(GestureType intended) {
    if (!isJson()) {
        std::printf("%-26s  %-32s ", std::string(rawValue(intended)).c_str(),
                    displayName(intended).c_str());
        std::fflush(stdout);
    }
}

void Printer::printOutcome(GestureType intended, const std::vector<Recognised>& outcome,
                           bool isAsIntended) {
    if (isJson()) {
        line(R"({"intended":")" + std::string(rawValue(intended)) + R"(","recognised":)" +
             jsonOf(outcome) + R"(,"asIntended":)" + (isAsIntended ? "true" : "false") + "}");
        return;
    }
    line((isAsIntended ? "recognised: " : "WRONG, recognised: ") + namesOf(outcome));
}

void Printer::printSummary(std::size_t performed, std::size_t asIntended) {
    const std::string all = std::to_string(performed);
    const std::string good = std::to_string(asIntended);
    line(isJson() ? R"({"performed":)" + all + R"(,"asIntended":)" + good + "}"
                  : good + " of " + all + " gestures recognised as intended");
}

} // namespace glidemap::replay
