// The program's output, as text for people or as JSON Lines for programs.
//
// Thread:  one.
// Errors:  main() checks standard output for write errors at the end. Every line is flushed
//          immediately, so that people and programs see a gesture when it is recognised. Bytes that
//          are not UTF-8 are replaced in JSON.
#pragma once

#include "core/gesture_type.h"
#include "run_event.h"

#include <string>
#include <vector>

namespace glidemap::replay {

class Printer {
public:
    enum class Form { text, json };

    explicit Printer(Form form);

    void printFile(const std::string& name);
    void print(const RunEvent& event);

    // For each performance, call printIntention() when it begins, and printOutcome() when it ends.
    void printIntention(GestureType intended);
    void printOutcome(GestureType intended, const std::vector<Recognised>& outcome,
                      bool isAsIntended);
    void printSummary(std::size_t performed, std::size_t asIntended);

private:
    bool isJson() const { return form == Form::json; }

    Form form;
};

} // namespace glidemap::replay
