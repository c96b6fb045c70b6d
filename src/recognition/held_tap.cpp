#include "recognition/held_tap.h"

#include <utility>

namespace glidemap {

void HeldTap::hold(std::shared_ptr<WorkItem> item) {
    const std::lock_guard lock(mutex);
    held = std::move(item);
}

void HeldTap::cancel() {
    if (const auto item = take()) {
        item->cancel();
    }
}

void HeldTap::clear() {
    take();
}

std::shared_ptr<WorkItem> HeldTap::take() {
    const std::lock_guard lock(mutex);
    return std::exchange(held, nullptr);
}

} // namespace glidemap
