#include "drivers/contact/missing_fingers.h"

#include "drivers/contact/contact_geometry.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace glidemap {

namespace {

// A new stand-in is placed on the line from its anchor towards the centre, at the first free
// multiple of this distance. At the first multiple, a new stand-in is too close to its anchor to be
// recognised as the tap of a hold and tap (which requires 0.05 on an axis), but far enough away to
// count as a separate finger.
constexpr float spacing = 0.04F;
constexpr float minDistance = 0.02F;
constexpr int maxAttempts = 16;

float distance(MTPoint a, MTPoint b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

// Returns a unit vector towards the pad's centre. For a contact at the centre, it points right.
MTPoint towardsCentre(MTPoint from) {
    const MTPoint middle{0.5F, 0.5F};
    const float length = distance(from, middle);
    if (length < minDistance) {
        return {1, 0};
    }
    return {(middle.x - from.x) / length, (middle.y - from.y) / length};
}

MTPoint difference(MTPoint a, MTPoint b) {
    return {a.x - b.x, a.y - b.y};
}

// Prefers a touching contact, because a stand-in for a finger must not follow a palm.
const MTTouch& chooseAnchor(std::span<const MTTouch> contacts, std::size_t turn) {
    for (std::size_t step = 0; step < contacts.size(); ++step) {
        const MTTouch& candidate = contacts[(turn + step) % contacts.size()];
        if (isTouchingState(candidate.state)) {
            return candidate;
        }
    }
    return contacts[turn % contacts.size()];
}

} // namespace

MissingFingers::MissingFingers(PadDescription description) : pad(std::move(description)) {
    standIns.reserve(maxFingers);
}

void MissingFingers::adopt(const MTTouch& record) {
    if (standIns.size() < maxFingers) {
        standIns.push_back({.record = record, .anchor = 0, .offset = {}});
    }
}

std::optional<MTTouch> MissingFingers::takeStandIn() {
    return removeBeyond(0);
}

std::optional<MTTouch> MissingFingers::removeBeyond(std::size_t fingers) {
    if (standIns.size() <= fingers) {
        return std::nullopt;
    }
    const MTTouch record = standIns.back().record;
    standIns.pop_back();
    return record;
}

void MissingFingers::update(std::span<const MTTouch> contacts, std::size_t fingers,
                            ContactIdentifiers& identifiers) {
    for (std::size_t index = 0; index < standIns.size(); ++index) {
        follow(contacts, standIns[index], index);
    }
    while (standIns.size() < std::min(fingers, maxFingers)) {
        add(contacts, identifiers.next());
    }
}

void MissingFingers::follow(std::span<const MTTouch> contacts, StandIn& standIn,
                            std::size_t index) const {
    const auto found = std::ranges::find(contacts, standIn.anchor, &MTTouch::identifier);
    const MTTouch& anchor = found != contacts.end() ? *found : chooseAnchor(contacts, index);
    if (anchor.identifier != standIn.anchor) {
        standIn.anchor = anchor.identifier;
        standIn.offset = difference(standIn.record.normalized.pos, anchor.normalized.pos);
    }
    moveWith(anchor, standIn, index);
}

void MissingFingers::moveWith(const MTTouch& anchor, StandIn& standIn, std::size_t index) const {
    const std::int32_t identifier = standIn.record.identifier;
    const std::int32_t state = nextState(standIn.record.state, isTouchingState(anchor.state));
    standIn.record = anchor;
    standIn.record.identifier = identifier;
    standIn.record.state = state;
    standIn.record.fingerID = pad.slotCount + static_cast<std::int32_t>(index);
    translate(pad, standIn.offset, standIn.record);
}

// Distributes stand-ins among the contacts, so that the mean movement of all fingers does not
// follow a single finger.
void MissingFingers::add(std::span<const MTTouch> contacts, std::int32_t identifier) {
    const MTTouch& anchor = chooseAnchor(contacts, standIns.size());
    StandIn standIn;
    standIn.record.identifier = identifier;
    standIn.anchor = anchor.identifier;
    const MTPoint place = freePositionBeside(contacts, anchor.normalized.pos);
    standIn.offset = difference(place, anchor.normalized.pos);
    moveWith(anchor, standIn, standIns.size());
    standIns.push_back(standIn);
}

MTPoint MissingFingers::freePositionBeside(std::span<const MTTouch> contacts,
                                           MTPoint anchor) const {
    const MTPoint direction = towardsCentre(anchor);
    MTPoint place = anchor;
    for (int attempt = 0; attempt < maxAttempts; ++attempt) {
        place = {place.x + direction.x * spacing, place.y + direction.y * spacing};
        if (isFree(contacts, place)) {
            break;
        }
    }
    return place;
}

bool MissingFingers::isFree(std::span<const MTTouch> contacts, MTPoint position) const {
    const auto isFar = [position](const MTTouch& other) {
        return distance(position, other.normalized.pos) >= minDistance;
    };
    return std::ranges::all_of(contacts, isFar) &&
           std::ranges::all_of(standIns, isFar, &StandIn::record);
}

} // namespace glidemap
