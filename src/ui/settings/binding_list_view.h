// The list of bindings, one row for each, in the store's order.
//
// A row stays with its binding. If bindings are edited, toggled or deleted, the other rows, their
// focus, an open demonstration, the selection and the scroll position are preserved. Only the
// visible rows, a few beyond them, and the row with the focus exist, so that a long list is as
// cheap as a short one.
//
//   Up, Down, Page Up, Page Down, Home, End   move the selection
//   Return   edits the selected binding   Delete   deletes it and selects a neighbour
//   Space    switches it on or off        Left, Right   move between the controls of a row
//   Tab      leaves the list
//
// Units:   points.
// Thread:  the main thread.
// Owner:   the settings view.
// Errors:  none. If several bindings have the same identifier, each has its own row.
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
    explicit BindingListView(const Lang& lang, QWidget* parent = nullptr);

    // Shows a new state of the list. If a binding was appended, selects it and scrolls to it.
    void setBindings(std::shared_ptr<const BindingList> list);
    void retitle();

    // Dims the list while gestures are switched off. The list stays usable.
    void setMuted(bool now);

    std::optional<std::size_t> selectedIndex() const { return selected; }
    void select(std::size_t index);

    std::size_t count() const { return bindings != nullptr ? bindings->size() : 0; }
    const GestureBinding& at(std::size_t index) const { return (*bindings)[index]; }
    const Lang& language() const { return lang; }

    // Returns the position of a row on the screen, even if the row does not exist at the moment.
    QRect placeOf(std::size_t index) const;

    // Returns the existing rows by their index in the list.
    const BindingRows::Rows& rows() const { return present.all(); }

    // Called for the user's actions in the list.
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
    BindingRows::Callbacks makeRowCallbacks();
    void layOut();
    void showSelection();
    void announceSelection();
    void announceFocusLater();
    void scrollTo(std::size_t index);
    bool moveSelection(int key);
    bool enterRow(int key);
    bool actOnSelection(int key);
    std::size_t firstVisible() const;
    std::size_t pageLength() const;

    const Lang& lang;
    std::shared_ptr<const BindingList> bindings; // null until the first call of setBindings()
    // For each binding: whether another binding always runs instead of it.
    std::vector<bool> shadowed;
    class Ground;

    QScrollArea* area;
    Ground* ground; // has the height of all rows together
    std::optional<std::size_t> selected;
    bool isMuted = false;
    bool usesKeys = false; // true if the user last used the keyboard, not the mouse
    BindingRows present;
    Subscription toTheme;
};

// Exposes the list to assistive technology as a list with one item for each binding (see
// list_accessibility.cpp). Idempotent.
void installListAccessibility();

} // namespace glidemap
