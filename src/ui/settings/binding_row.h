// A row of the list: the binding's gesture, action and scope, its check box, its demonstration, and
// the buttons to edit and delete it. The row itself changes no data.
//
// The list selects the row, and handles the keys that the row's controls do not use.
//
// Units:   points.
// Thread:  the main thread.
// Owner:   the list, which may set a new state of the same binding at any time; the row then keeps
//          its focus and its open popover.
// Errors:  none. Long names are elided.
#pragma once

#include "bindings/gesture_binding.h"
#include "core/lang.h"
#include "ui/controls/popover.h"

#include <QPointer>
#include <QWidget>
#include <array>
#include <functional>

class QAbstractButton;
class QCheckBox;
class QHBoxLayout;
class QPainter;

namespace glidemap {

class Badge;
class ElidedLabel;
class GesturePreview;
class SymbolButton;

class BindingRow : public QWidget {
public:
    // Called for the user's actions in the row.
    struct Callbacks {
        std::function<void(bool enabled)> onToggle;
        std::function<void()> onEdit;
        std::function<void()> onDelete;
    };

    BindingRow(GestureBinding shown, Callbacks callbacks, const Lang& lang,
               QWidget* parent = nullptr);
    ~BindingRow() override;

    const GestureBinding& binding() const { return shown; }
    void setBinding(GestureBinding binding);

    // Sets whether an earlier binding always runs instead of this one.
    void setShadowed(bool never);

    // Sets whether gestures are switched off, so that no binding runs.
    void setMuted(bool now);

    // Sets the texts in the current language.
    void retitle();

    bool showsPreview() const { return !popover.isNull(); }
    void togglePreview();
    void closePreview();

    // While the list receives keys, the selected row shows a focus ring.
    enum class Selection { none, selected, selectedWithFocus };
    void setSelection(Selection now);
    bool isSelected() const { return selection != Selection::none; }

    // Returns the controls in reading order. Each of them can have the focus.
    std::array<QAbstractButton*, 4> controls() const;

    // Moves the focus to the first control.
    void enter();

    // Called when a key moves the focus from the first control back to the list.
    std::function<void()> onLeave;

    // Called when a control of the row receives the focus.
    std::function<void(Qt::FocusReason)> onFocusInside;

    // Returns the accessible name of a row for this binding.
    static QString spokenName(const GestureBinding& binding, const Lang& lang);

    // Returns the height of a row. It is the same for all scripts (writing systems).
    static int usualHeight();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void makeSwitch(QHBoxLayout& layout);
    void makeTexts(QHBoxLayout& layout);
    void makeButtons(QHBoxLayout& layout);
    void updateAccessibleNames();
    void explain();
    void showEmphasis();
    bool movesFocus(int key, QAbstractButton* from);
    void drawFocusOfDimmed(QPainter& painter) const;

    GestureBinding shown;
    Callbacks callbacks;
    const Lang& lang;
    Selection selection = Selection::none;
    bool isShadowed = false;
    bool isMuted = false;
    QWidget* content;
    QCheckBox* enabled = nullptr;
    SymbolButton* preview = nullptr;
    ElidedLabel* gestureName = nullptr;
    ElidedLabel* actionText = nullptr;
    Badge* scopeBadge = nullptr;
    SymbolButton* edit = nullptr;
    SymbolButton* remove = nullptr;
    QPointer<Popover> popover;
    GesturePreview* previewed = nullptr; // owned by the popover
};

} // namespace glidemap
