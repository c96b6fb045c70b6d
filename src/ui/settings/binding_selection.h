// Where the selection goes when a list has become another one, and by which key.
//
// Thread:  any; pure functions.
// Errors:  none.
#pragma once

#include "bindings/indexed_bindings.h"

#include <cstddef>
#include <optional>

namespace glidemap {

// The binding with this identifier that is nearest to `index`. Identifiers may repeat.
std::optional<std::size_t> nearestWith(const Uuid& id, const BindingList& list, std::size_t index);

// The selected binding wherever it is now; if it has gone, the one that followed it, else the one
// before it.
std::optional<std::size_t> selectionAfter(const BindingList& before, const BindingList& after,
                                          std::optional<std::size_t> selected);

// Whether nothing has changed but for one more binding at the end.
bool hasGrownByOne(const BindingList& before, const BindingList& after);

// Where one of the keys that move (Qt::Key_Up and its like) takes the selection in a list of `count`,
// which is not empty; none for any other key. The first key down shows where one is.
std::optional<std::size_t> selectionMovedBy(int key, std::optional<std::size_t> selected,
                                            std::size_t count, std::size_t pageLength);

} // namespace glidemap
