#include "printer.h"

#include "run_event_lines.h"

#include <cstdio>
#include <string_view>

namespace glidemap::replay {

namespace {

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
