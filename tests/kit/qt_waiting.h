// QTest's waits for tests of windows and widgets, with time-outs for a busy machine instead of five
// seconds.
//
// Thread:  the main thread, whose event loop runs during the wait.
#pragma once

#include "kit/patience.h"

#include <QTest>
#include <utility>

namespace glidemap::test {

inline constexpr int patienceInMilliseconds =
    static_cast<int>(std::chrono::milliseconds(patience).count());

// Returns whether the condition became true.
template <typename Condition>
[[nodiscard]] bool waitFor(Condition condition) {
    return QTest::qWaitFor(std::move(condition), patienceInMilliseconds);
}

template <typename Window>
[[nodiscard]] bool waitForWindowActive(Window* window) {
    return QTest::qWaitForWindowActive(window, patienceInMilliseconds);
}

template <typename Window>
[[nodiscard]] bool waitForWindowExposed(Window* window) {
    return QTest::qWaitForWindowExposed(window, patienceInMilliseconds);
}

} // namespace glidemap::test
