// The existing rows of the binding list: the visible ones, a few beyond them, and the row with the
// focus. A row stays with its binding when the list changes.
//
// Units:   points, from the upper edge of `ground`.
// Thread:  the main thread.
// Owner:   the list. `ground` owns the rows, and must outlive this object.
// Errors:  none. If several bindings have the same identifier, each has its own row.
#pragma once

#include "bindings/indexed_bindings.h"
#include "core/lang.h"
#include "ui/settings/binding_row.h"

#include <cstddef>
#include <functional>
#include <map>
#include <optional>

class QWidget;

namespace glidemap {

class BindingRows {
public:
    // The rows, by their index in the list.
    using Rows = std::map<std::size_t, BindingRow*>;

    // Called for the user's actions in a row.
    struct Callbacks {
        std::function<void(const GestureBinding&, bool enabled)> onToggle;
        std::function<void(const GestureBinding&)> onEdit;
        std::function<void(const GestureBinding&)> onDelete;
        std::function<void(std::size_t index, Qt::FocusReason)> onFocusInside;
        std::function<void()> onLeave; // the focus moves from a row to the list itself
    };

    // `list` is the event filter of all rows, and precedes them in the tab order.
    BindingRows(QWidget& list, QWidget& ground, const Lang& lang, Callbacks callbacks);
    BindingRows(const BindingRows&) = delete;
    BindingRows& operator=(const BindingRows&) = delete;
    ~BindingRows();

    const Rows& all() const { return rows; }
    std::optional<std::size_t> indexOf(const QObject* row) const;

    // Moves each row to the new index of its binding, and deletes the rows of deleted bindings.
    // Returns whether a deleted row had the focus.
    bool carryOver(const BindingList& next);

    // Creates the missing rows from `first` up to, but not including, `end`. Discards all other
    // rows except the row with the focus. Returns whether any row was created.
    bool cover(const BindingList& bindings, std::size_t first, std::size_t end);

    void closePreviews();

    // Return the distance between the tops of two neighbouring rows, and the height of `count`
    // rows.
    static int step();
    static int heightOf(std::size_t count);

    // Returns the y position of the boundary between the row at this index and the row above it.
    static int boundaryAbove(std::size_t index);

private:
    void dropOutside(std::size_t count, std::size_t first, std::size_t end);
    BindingRow* make(const GestureBinding& binding);
    void discard(BindingRow* row);
    void place();
    void putInOrder();

    QWidget& list;
    QWidget& ground;
    const Lang& lang;
    const Callbacks callbacks;
    Rows rows;
};

} // namespace glidemap
