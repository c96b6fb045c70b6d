#include "run_event_lines.h"

#include <nlohmann/json.hpp>

#include <array>
#include <cstdio>
#include <optional>
#include <string_view>
#include <variant>

namespace glidemap::replay {

namespace {

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

// Time, event and description.
std::string row(double time, std::string_view what, const std::string& words) {
    std::array<char, 400> start{};
    std::snprintf(start.data(), start.size(), "%12.3f  %-26.*s  ", time,
                  static_cast<int>(what.size()), what.data());
    return start.data() + words;
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
        const std::string what =
            "button " + std::to_string(button.button) + (button.down ? " down" : " up");
        const std::string why =
            button.click ? ": " + displayName(button.click->gesture) + arrow(button.click->routing)
                         : "";
        return row(button.time, what, "swallowed" + why);
    }

    std::string operator()(const KeyPosted& /*part of the gesture line*/) const { return ""; }
    std::string operator()(const Performed& /*part of the gesture line*/) const { return ""; }
};

} // namespace

std::string jsonOf(const RunEvent& event) {
    return std::visit(Json(), event);
}

std::string recognitionJsonOf(const Recognised& recognised) {
    return openRecognition(recognised) + "}";
}

std::string textOf(const RunEvent& event) {
    return std::visit(Text(), event);
}

std::string quoted(const std::string& text) {
    // A file name may contain any bytes.
    return nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

} // namespace glidemap::replay
