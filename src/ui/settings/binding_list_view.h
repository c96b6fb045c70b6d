// The list of bindings: one row for each, in the store's order.
//
// A row belongs to its binding: an edit, a toggle or a deletion elsewhere leaves it, its focus, its
// open demonstration, the selection and the scroll position as they are. There are rows only for
// what can be seen, for a few beyond, and for what has the focus, so that a thousand bindings cost
// no more than twenty.
//
//   Up, Down, Page Up, Page Down, Home, End   move the selection
//   Return   edits what is selected      Delete   deletes it; a neighbour is selected then
//   Space    switches it                 Left, Right   move between the controls of a row
//   Tab      leaves the list
//
// Units:   points.
// Thread:  the main thread.
// Owner:   the settings view.
// Errors:  none. Bindings may share an identifier; each has its row.
#pragma once

#include "bindings/indexed_bindings.h"
#include "ui/settings/binding_rows.h"
#include "ui/theme/theme.h"

#include <QWidget>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class QScrollArea;

namespace glidemap {

class BindingListView : public QWidget {
public:
    explicit BindingListView(const Lang& language, QWidget* parent = nullptr);

    // A binding that has been added at the end is selected, and shown.
    void setBindings(std::shared_ptr<const BindingList> list);
    void retitle();

    // Whether no binding runs now, because gestures are switched off: the list looks it, and can be
    // used as before.
    void setMuted(bool now);

    std::optional<std::size_t> selectedIndex() const { return selected; }
    void select(std::size_t index);

    std::size_t count() const { return bindings != nullptr ? bindings->size() : 0; }
    const GestureBinding& at(std::size_t index) const { return (*bindings)[index]; }
    const Lang& language() const { return lang; }

    // On the screen, of a row that need not be there now.
    QRect placeOf(std::size_t index) const;

    // Those there are now, by their place in the list.
    const BindingRows::Rows& rows() const { return present.all(); }

    // What the user asked for.
    std::function<void(const GestureBinding&, bool enabled)> onToggle;
    std::function<void(const GestureBinding&)> onEdit;
    std::function<void(const GestureBinding&)> onDelete;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    BindingRows::Callbacks whatRowsAsk();
    void layOut();
    void showSelection();
    void announceSelection();
    void scrollTo(std::size_t index);
    bool moveSelection(int key);
    bool enterRow(int key);
    bool actOnSelection(int key);
    std::size_t highestInSight() const;
    std::size_t pageLength() const;

    const Lang& lang;
    std::shared_ptr<const BindingList> bindings; // null until the first
    std::vector<bool> shadowed; // of each of them, whether another always runs in its place
    class Ground;

    QScrollArea* area;
    Ground* ground; // as high as all rows together
    std::optional<std::size_t> selected;
    bool isMuted = false;
    bool usesKeys = false; // and not the mouse: the ring of the focus is shown then
    BindingRows present;
    Subscription toTheme;
};

} // namespace glidemap
