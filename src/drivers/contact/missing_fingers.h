// Stands in for the fingers that a pad counts but does not report: beside its contacts, extra ones
// are kept that move exactly with them, so that the number of fingers is right.
//
//   pad says:   three fingers     slot 0 ●       slot 1 ●
//   reported:                     slot 0 ●──○    slot 1 ●     ○ keeps its distance to its anchor ●
//
// Units:   as in the records. A stand-in may lie outside 0..1, because it never leaves its anchor's
//          side.
// Thread:  the assembler's.
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
    // No pad announces more fingers than this.
    static constexpr std::size_t mostFingers = 5;

    explicit MissingFingers(PadDescription description);

    std::size_t count() const { return standIns.size(); }

    // A contact whose slot was taken from it although its finger is still there goes on as a
    // stand-in.
    void adopt(const MTTouch& record);

    // A stand-in whose finger has got a slot goes on as that slot's contact. None where there is
    // none to give.
    std::optional<MTTouch> give();

    // Takes away one stand-in that is not wanted any more, if there are more than `wanted`.
    std::optional<MTTouch> removeBeyond(std::size_t wanted);

    // Moves the stand-ins with their anchors among the contacts of this report and adds those that
    // are wanting. One whose anchor has left stays where it is and goes on with another. `contacts`
    // is not empty unless `wanted` is 0.
    void update(std::span<const MTTouch> contacts, std::size_t wanted,
                ContactIdentifiers& identifiers);

    // The record of each, valid until the next change.
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
    MTPoint freePlaceBeside(std::span<const MTTouch> contacts, MTPoint anchor) const;
    bool isFree(std::span<const MTTouch> contacts, MTPoint position) const;
    void moveWith(const MTTouch& anchor, StandIn& standIn, std::size_t index) const;

    PadDescription pad;
    std::vector<StandIn> standIns;
};

} // namespace glidemap
