// Adds stand-ins for the fingers that a pad counts but does not report, so that the number of
// fingers is right. Each stand-in copies the movement of a reported contact, its anchor.
//
//   from pad:   three fingers     slot 0 ●       slot 1 ●
//   reported:                     slot 0 ●──○    slot 1 ●     ○ keeps its distance to its anchor ●
//
// Units:   as in the records. A stand-in may lie outside 0..1, because it stays at a fixed offset
//          from its anchor.
// Thread:  the assembler's thread.
// Owner:   ContactAssembler.
// Errors:  none.
#pragma once

#include "drivers/contact/contact_identifiers.h"
#include "drivers/contact/pad_description.h"
#include "input/mt_touch.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace glidemap {

class MissingFingers {
public:
    // The highest number of fingers that a pad can announce.
    static constexpr std::size_t maxFingers = 5;

    explicit MissingFingers(PadDescription description);

    std::size_t count() const { return standIns.size(); }

    // Turns a contact into a stand-in. Its finger is still on the pad but has lost its slot.
    void adopt(const MTTouch& record);

    // Call this when a stand-in's finger gets a slot. Removes a stand-in and returns its record, so
    // that the slot's contact can continue that record. Returns nullopt if no stand-in exists.
    std::optional<MTTouch> takeStandIn();

    // Removes one stand-in and returns its record if more than `fingers` exist.
    std::optional<MTTouch> removeBeyond(std::size_t fingers);

    // Moves each stand-in together with its anchor, then adds stand-ins until `fingers` exist. If
    // an anchor has left, its stand-in keeps its position and follows another contact. `contacts`
    // are the contacts of this report. They may be empty only if `fingers` is 0.
    void update(std::span<const MTTouch> contacts, std::size_t fingers,
                ContactIdentifiers& identifiers);

    // The reference is valid until the next change of the stand-ins.
    const MTTouch& record(std::size_t index) const { return standIns[index].record; }

    void clear() { standIns.clear(); }

private:
    struct StandIn {
        MTTouch record{}; // as last reported
        std::int32_t anchor = 0;
        MTPoint offset{}; // from the anchor, normalised
    };

    void follow(std::span<const MTTouch> contacts, StandIn& standIn, std::size_t index) const;
    void add(std::span<const MTTouch> contacts, std::int32_t identifier);
    MTPoint freePositionBeside(std::span<const MTTouch> contacts, MTPoint anchor) const;
    bool isFree(std::span<const MTTouch> contacts, MTPoint position) const;
    void moveWith(const MTTouch& anchor, StandIn& standIn, std::size_t index) const;

    PadDescription pad;
    std::vector<StandIn> standIns;
};

} // namespace glidemap
