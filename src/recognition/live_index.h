// Maps the identifier of each finger on the pad to the index of its track in the session.
//
// Uses a sorted array instead of a tree or a hash table, because a pad has few fingers and
// processing a frame must not allocate.
//
// Thread:  the engine's queue.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace glidemap {

class LiveIndex {
public:
    struct Entry {
        std::int32_t id = 0;
        std::size_t track = 0;
    };

    // Adds a finger, or updates the index of its track.
    void set(std::int32_t id, std::size_t track);
    void remove(std::int32_t id);
    void clear() { entries.clear(); }

    std::optional<std::size_t> find(std::int32_t id) const {
        const Entry* entry = entryOf(id);
        return entry != nullptr ? std::optional(entry->track) : std::nullopt;
    }

    // Like find(), but returns a pointer or null. It is for the inner loop of each frame, where
    // returning an optional through memory would cost more than the search.
    const Entry* entryOf(std::int32_t id) const {
        if (entries.size() > fewEntries) {
            return findAmongMany(id);
        }
        for (const Entry& entry : entries) {
            if (entry.id == id) {
                return &entry;
            }
        }
        return nullptr;
    }

    std::size_t size() const { return entries.size(); }

    // Sorted by id.
    std::span<const Entry> all() const { return entries; }

    // Replaces the content of `missing` with the entries whose id is not in `ids`. `ids` must be in
    // ascending order.
    void collectMissing(std::span<const std::int32_t> ids, std::vector<Entry>& missing) const;

private:
    // Up to this size, a linear search is faster than a binary search.
    static constexpr std::size_t fewEntries = 11;

    const Entry* findAmongMany(std::int32_t id) const;

    std::vector<Entry> entries;
};

} // namespace glidemap
