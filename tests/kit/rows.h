// Tables of performances: each row is a fact about the recognizer, a script that shows it, and all
// gestures that it reports.
//
// A failure prints the row, its script, and the expected and actual gestures.
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

// As written. For rows at a limit, where any variation would cross it.
void expectRows(std::span<const Row> rows);

// As written, then with all hands and pads (see variants.h). For rows well inside their limits.
void expectRowsInEveryVariant(std::span<const Row> rows);

// Like expectRows(), including times.
void expectReportedGestures(const Script& script, const std::vector<ReportedGesture>& expected,
                            const Stage& stage = {});

// The text of a failed row, or empty if the variant reported the expected gestures.
std::string mismatch(const Row& row, const Variant& variant);

} // namespace glidemap::kit
