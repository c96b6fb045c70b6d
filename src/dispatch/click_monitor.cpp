#include "dispatch/click_monitor.h"

#include <optional>
#include <utility>

namespace glidemap {

ClickMonitor::ClickMonitor(std::shared_ptr<ClickTap> tap, std::function<int()> touchingCount)
    : tap(std::move(tap)), touchingCount(std::move(touchingCount)),
      lifetime(std::make_shared<ClickMonitor*>(this)) {}

ClickMonitor::~ClickMonitor() {
    stop();
}

void ClickMonitor::start() {
    if (_isRunning) {
        return;
    }
    _isRunning = tap->create([weakly = std::weak_ptr(lifetime)](const ClickEvent& event) {
        const auto monitor = weakly.lock();
        return monitor ? (*monitor)->decide(event) : ClickTap::Verdict::pass;
    });
    if (_isRunning) {
        tap->setEnabled(true);
    }
}

void ClickMonitor::stop() {
    if (_isRunning) {
        tap->setEnabled(false);
        tap->remove();
        _isRunning = false;
    }
}

ClickTap::Verdict ClickMonitor::decide(const ClickEvent& event) {
    switch (event.type) {
    case ClickEventType::tapDisabledByTimeout:
    case ClickEventType::tapDisabledByUserInput:
        tap->setEnabled(true);
        return ClickTap::Verdict::pass;
    case ClickEventType::leftMouseDown:
    case ClickEventType::rightMouseDown:
        if (!isConsumed()) {
            // While the tap was disabled, it may have missed the release of an earlier press, whose
            // button is then still in the list.
            swallowUpForButton.erase(event.button);
            return ClickTap::Verdict::pass;
        }
        swallowUpForButton.insert(event.button);
        return ClickTap::Verdict::drop;
    case ClickEventType::leftMouseUp:
    case ClickEventType::rightMouseUp:
        return swallowUpForButton.erase(event.button) > 0 ? ClickTap::Verdict::drop
                                                          : ClickTap::Verdict::pass;
    case ClickEventType::other:
        break;
    }
    return ClickTap::Verdict::pass;
}

bool ClickMonitor::isConsumed() const {
    // Clicks with one finger (ordinary) or five fingers (accidental) are not gestures.
    const auto gesture = gestureFor(GestureCategory::click, touchingCount());
    return gesture && onClickGesture && onClickGesture(*gesture);
}

} // namespace glidemap
