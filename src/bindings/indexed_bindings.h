// A list of bindings with an index by gesture. Matching takes logarithmic time.
//
// Thread:  any, after construction.
// Owner:   the binding store. Movable, not copyable: the index points into the list.
// Errors:  none.
#pragma once

#include "bindings/gesture_binding.h"

#include <array>
#include <bitset>
#include <optional>
#include <string_view>
#include <tuple>
#include <vector>

namespace glidemap {

using BindingList = std::vector<GestureBinding>;

class IndexedBindings {
public:
    explicit IndexedBindings(BindingList list);
    IndexedBindings(const IndexedBindings&) = delete;
    IndexedBindings& operator=(const IndexedBindings&) = delete;
    IndexedBindings(IndexedBindings&&) = default;
    IndexedBindings& operator=(IndexedBindings&&) = default;
    ~IndexedBindings() = default;

    const BindingList& list() const { return bindings; }

    // Returns the gesture's first enabled binding for the frontmost application, or else its first
    // enabled global binding. Returns null if both are missing.
    const GestureBinding* match(GestureType gesture,
                                std::optional<std::string_view> frontmost) const;

    // Returns whether the gesture has an enabled binding, in any scope.
    bool hasEnabled(GestureType gesture) const;

private:
    struct ForApp {
        GestureType gesture{};
        std::string_view bundleID; // refers to the text in `binding`
        const GestureBinding* binding = nullptr;

        bool operator<(const ForApp& other) const {
            return std::tie(gesture, bundleID) < std::tie(other.gesture, other.bundleID);
        }
    };

    void add(const GestureBinding& binding);

    BindingList bindings;
    std::array<const GestureBinding*, allGestureTypes.size()> firstGlobal{};
    std::vector<ForApp> forApps; // sorted; bindings with equal keys keep the list's order
    std::bitset<allGestureTypes.size()> enabled;
};

} // namespace glidemap
