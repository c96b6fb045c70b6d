// Tables of performances: each row is a fact about the recognizer, a script that shows it, and all
// that is heard.
//
// A failure prints the row, its script, and what was expected beside what was heard.
#pragma once

#include "kit/performance.h"
#include "kit/script.h"
#include "kit/variants.h"

#include <span>
#include <string>
#include <vector>

namespace glidemap::kit {

struct Row {
    std::string fact;
    Script script;
    std::vector<GestureType> expected; // the complete list, in order
    std::vector<int> boundDoubleTaps = {};
};

// As written. For rows that stand at a limit, which any variation would push over.
void expectRows(std::span<const Row> rows);

// As written, then by many hands on many pads (see variants.h). For rows well inside their limits.
void expectRowsInEveryVariant(std::span<const Row> rows);

// What expectRows() checks, with times.
void expectHeard(const Script& script, const std::vector<Heard>& expected, const Stage& stage = {});

// The text of a failed row, or nothing if the variant heard what it should.
std::string complaint(const Row& row, const Variant& variant);

} // namespace glidemap::kit
