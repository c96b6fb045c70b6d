#include "drivers/evdev/clone_introduction.h"

#include <utility>

namespace glidemap {

namespace {

// Returns the reason why programs cannot read the clone yet, or null if they can.
const char* obstacleOf(const CloneStanding& standing) {
    if (!standing.hasNode) {
        return "the kernel has made no event node for the touchpad's clone";
    }
    if (!standing.isAnnounced) {
        return "udev has not announced the touchpad's clone as a touchpad";
    }
    if (standing.isOpen.has_value() && !*standing.isOpen) {
        return "no program has opened the touchpad's clone";
    }
    return nullptr;
}

} // namespace

CloneIntroduction::State CloneIntroduction::look(const CloneStanding& standing, Moment now) {
    reason = obstacleOf(standing);
    if (reason != nullptr) {
        graceEnd.reset();
        return now < deadline ? State::waiting : State::failed;
    }
    const bool knewReader = std::exchange(readerIsKnown, standing.isOpen.has_value());
    if (!graceEnd.has_value() || knewReader != readerIsKnown) {
        graceEnd = now + (readerIsKnown ? readerGracePeriod : unknownReaderGracePeriod);
    }
    return now < *graceEnd ? State::waiting : State::ready;
}

CloneIntroduction::Moment CloneIntroduction::nextLook() const {
    return graceEnd.value_or(deadline);
}

} // namespace glidemap
