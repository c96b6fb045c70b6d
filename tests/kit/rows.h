// Tables of performances. Each row has a statement about the recognizer, a script that demonstrates
// the statement, and the complete list of expected gestures.
//
// A failure prints the row, its script, and the expected and actual gestures.
#pragma once

#include "kit/performance.h"
#include "kit/script.h"
#include "kit/variants.h"

#include <span>
#include <string>
#include <vector>

namespace glidemap::test {

struct Row {
    std::string fact;
    Script script;
    std::vector<GestureType> expected; // the complete list, in order
    std::vector<int> boundDoubleTaps = {};
};

// Performs each row as written, for rows at a limit, where any variation would cross the limit.
void expectRows(std::span<const Row> rows);

// Performs each row in every variant (see variants.h), for rows well inside their limits.
void expectRowsInEveryVariant(std::span<const Row> rows);

// Like expectRows(), but also compares the times.
void expectReportedGestures(const Script& script, const std::vector<ReportedGesture>& expected,
                            const PerformanceStage& stage = {});

// Returns an error message for the row, or an empty text if the variant reported the expected
// gestures.
std::string mismatch(const Row& row, const PerformanceVariant& variant);

} // namespace glidemap::test
