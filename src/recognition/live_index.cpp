#include "recognition/live_index.h"

#include <algorithm>

namespace glidemap {

void LiveIndex::set(std::int32_t id, std::size_t track) {
    const auto place = std::ranges::lower_bound(entries, id, {}, &Entry::id);
    if (place != entries.end() && place->id == id) {
        place->track = track;
    } else {
        entries.insert(place, {id, track});
    }
}

void LiveIndex::remove(std::int32_t id) {
    const auto place = std::ranges::lower_bound(entries, id, {}, &Entry::id);
    if (place != entries.end() && place->id == id) {
        entries.erase(place);
    }
}

const LiveIndex::Entry* LiveIndex::findAmongMany(std::int32_t id) const {
    const auto place = std::ranges::lower_bound(entries, id, {}, &Entry::id);
    return place != entries.end() && place->id == id ? &*place : nullptr;
}

void LiveIndex::collectMissing(std::span<const std::int32_t> ids,
                               std::vector<Entry>& missing) const {
    missing.clear();
    if (std::ranges::equal(ids, entries, {}, {}, &Entry::id)) {
        return; // the common case
    }
    auto id = ids.begin();
    for (const Entry& entry : entries) {
        while (id != ids.end() && *id < entry.id) {
            ++id;
        }
        if (id == ids.end() || *id != entry.id) {
            missing.push_back(entry);
        }
    }
}

} // namespace glidemap
