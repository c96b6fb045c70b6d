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

    std::optional<std::size_t> find(std::int32_t id) const;
    std::size_t size() const { return entries.size(); }

    // In the order of the ids.
    std::span<const Entry> all() const { return entries; }

    // Writes the entries whose id is not among `ids`, which are in ascending order.
    void collectMissing(std::span<const std::int32_t> ids, std::vector<Entry>& missing) const;

private:
    std::vector<Entry> entries;
};

} // namespace glidemap
