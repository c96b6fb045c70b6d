// The list of bindings: one row for each, in the store's order.
//
// A row belongs to its binding. An edit, a toggle or a deletion elsewhere preserves the row, its
// focus, its open demonstration, the selection and the scroll position. Only visible rows, a few
// beyond them, and the row with the focus exist, so that a thousand bindings cost no more than
// twenty.
//
//   Up, Down, Page Up, Page Down, Home, End   move the selection
//   Return   edits the selected binding   Delete   deletes it and selects a neighbour
//   Space    switches it                  Left, Right   move between the controls of a row
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
    explicit BindingListView(const Lang& lang, QWidget* parent = nullptr);

    // Selects and shows a binding that was appended.
    void setBindings(std::shared_ptr<const BindingList> list);
    void retitle();

    // Dims the list while gestures are switched off. It remains usable.
    void setMuted(bool now);

    std::optional<std::size_t> selectedIndex() const { return selected; }
    void select(std::size_t index);

    std::size_t count() const { return bindings != nullptr ? bindings->size() : 0; }
    const GestureBinding& at(std::size_t index) const { return (*bindings)[index]; }
    const Lang& language() const { return lang; }

    // The screen position of a row, which need not exist.
    QRect placeOf(std::size_t index) const;

    // The existing rows, by their index in the list.
    const BindingRows::Rows& rows() const { return present.all(); }

    // User requests.
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
    void scrollTo(std::size_t index);
    bool moveSelection(int key);
    bool enterRow(int key);
    bool actOnSelection(int key);
    std::size_t firstVisible() const;
    std::size_t pageLength() const;

    const Lang& lang;
    std::shared_ptr<const BindingList> bindings; // null until the first call of setBindings()
    std::vector<bool> shadowed; // for each binding: another binding always runs instead
    class Ground;

    QScrollArea* area;
    Ground* ground; // as tall as all rows together
    std::optional<std::size_t> selected;
    bool isMuted = false;
    bool usesKeys = false; // and not the mouse: shows the focus ring
    BindingRows present;
    Subscription toTheme;
};

// Exposes the bindings to assistive technology as a list with items (list_accessibility.cpp).
// Idempotent.
void installListAccessibility();

} // namespace glidemap
