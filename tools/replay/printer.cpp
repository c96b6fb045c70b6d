#include "printer.h"

#include <nlohmann/json.hpp>

#include <array>
#include <cstdio>
#include <string_view>

namespace glidemap::replay {

namespace {

// Microseconds are what a recording can tell; more digits would show how doubles are added.
std::string seconds(double time) {
    std::array<char, 400> digits{}; // room for the largest double
    std::snprintf(digits.data(), digits.size(), "%.6f", time);
    std::string text = digits.data();
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) {
        text.pop_back();
    }
    return text == "-0" ? "0" : text;
}

std::string quoted(const std::string& text) {
    // A file's name may be any bytes.
    return nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

std::string jsonOf(const Recognised& recognised) {
    return R"({"t":)" + seconds(recognised.time) + R"(,"gesture":")" +
           std::string(rawValue(recognised.gesture)) + R"(","delivered":)" +
           (recognised.delivered ? "true" : "false") + "}";
}

std::string jsonOf(const std::vector<Recognised>& outcome) {
    std::string list;
    for (const Recognised& recognised : outcome) {
        list += (list.empty() ? "" : ",") + jsonOf(recognised);
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

Printer::Printer(Form chosen) : form(chosen) {
    std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
}

void Printer::printFile(const std::string& name) {
    line(isJson() ? R"({"file":)" + quoted(name) + "}" : name);
}

void Printer::print(const Recognised& recognised) {
    if (isJson()) {
        line(jsonOf(recognised));
        return;
    }
    std::printf("%12.3f  %-26s  %s%s\n", recognised.time,
                std::string(rawValue(recognised.gesture)).c_str(),
                displayName(recognised.gesture).c_str(),
                recognised.delivered ? "" : "  (dropped: cooldown)");
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
