// The rows that the list of bindings has now: for what can be seen, for a few beyond, and for what
// has the focus. Each stays with its binding when the list changes.
//
// Units:   points, from the upper edge of the ground.
// Thread:  the main thread.
// Owner:   the list. The ground owns the rows, and outlives this.
// Errors:  none. Bindings may share an identifier; each has its row.
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
    // By their place in the list.
    using Rows = std::map<std::size_t, BindingRow*>;

    // What the user did in one of them.
    struct Callbacks {
        std::function<void(const GestureBinding&, bool enabled)> onToggle;
        std::function<void(const GestureBinding&)> onEdit;
        std::function<void(const GestureBinding&)> onDelete;
        std::function<void(std::size_t index, Qt::FocusReason)> onFocusInside;
        std::function<void()> onLeave; // the focus goes back to the list itself
    };

    // The list sees the rows' events before they do, and comes before them in the order of Tab.
    BindingRows(QWidget& list, QWidget& ground, const Lang& language, Callbacks callbacks);
    BindingRows(const BindingRows&) = delete;
    BindingRows& operator=(const BindingRows&) = delete;
    ~BindingRows();

    const Rows& all() const { return rows; }
    std::optional<std::size_t> indexOf(const QObject* row) const;

    // Each goes where its binding has gone, and goes with it where that is no more. Answers whether
    // the focus was in one that went.
    bool carryOver(const BindingList& next);

    // Makes those that are missing from `first` on and before `end`, lets go of those outside, and
    // puts all in their places. Answers whether any is new.
    bool cover(const BindingList& bindings, std::size_t first, std::size_t end);

    void closePreviews();

    // From one row to the next, and the room of so many of them.
    static int step();
    static int heightOf(std::size_t count);

    // Where one ends and the next begins, above the one at this index.
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
