// Computes the selection after a change of the list or after a key press.
//
// Thread:  any; pure functions.
// Errors:  none.
#pragma once

#include "bindings/indexed_bindings.h"

#include <cstddef>
#include <optional>

namespace glidemap {

// Returns the index of the binding with this identifier. If several bindings have it, returns the
// one closest to `index`.
std::optional<std::size_t> closestWithIdentifier(const Uuid& id, const BindingList& list,
                                                 std::size_t index);

// Returns the new index of the selected binding. If the binding was deleted, returns the index of
// its successor or, failing that, of its predecessor.
std::optional<std::size_t> selectionAfter(const BindingList& before, const BindingList& after,
                                          std::optional<std::size_t> selected);

// Whether the lists differ only in one appended binding.
bool hasGrownByOne(const BindingList& before, const BindingList& after);

// Returns the index to which a movement key (such as Qt::Key_Up) moves the selection in a list of
// `count` > 0 bindings, or nullopt for other keys. Without a selection, Down selects the first
// binding, and every other movement key moves as if the first binding were selected.
std::optional<std::size_t> selectionMovedBy(int key, std::optional<std::size_t> selected,
                                            std::size_t count, std::size_t pageLength);

} // namespace glidemap
