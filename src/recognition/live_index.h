// Which track each finger on the pad is drawing: finger id to index into the session's tracks.
//
// A sorted array rather than a tree or a hash table: a hand has five fingers, and a frame must not
// allocate.
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

    // Adds a finger, or says that its track has moved.
    void set(std::int32_t id, std::size_t track);
    void remove(std::int32_t id);
    void clear() { entries.clear(); }

    std::optional<std::size_t> find(std::int32_t id) const {
        const Entry* entry = entryOf(id);
        return entry != nullptr ? std::optional(entry->track) : std::nullopt;
    }

    // The same for the frame's own loop, as a pointer or null: an optional would be put together in
    // memory and read back at once, which costs more than the search.
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

    // In the order of the ids.
    std::span<const Entry> all() const { return entries; }

    // Writes the entries whose id is not among `ids`, which are in ascending order.
    void collectMissing(std::span<const std::int32_t> ids, std::vector<Entry>& missing) const;

private:
    // A hand's fingers are found sooner by looking at each than by halving.
    static constexpr std::size_t fewEntries = 11;

    const Entry* findAmongMany(std::int32_t id) const;

    std::vector<Entry> entries;
};

} // namespace glidemap
