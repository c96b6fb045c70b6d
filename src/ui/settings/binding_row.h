// One line of the list: what a binding does, at a glance, with its switch, its demonstration, and
// the buttons to edit and to delete it. It changes nothing itself.
//
// Its look of a selected row, and the keys that are the list's, are told by the list.
//
// Units:   points.
// Thread:  the main thread.
// Owner:   the list. It may be given another state of its binding at any time, and is the same row
//          then: what has the focus or is open stays so.
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
    // What it does when the user asks.
    struct Callbacks {
        std::function<void(bool enabled)> onToggle;
        std::function<void()> onEdit;
        std::function<void()> onDelete;
    };

    BindingRow(GestureBinding shown, Callbacks callbacks, const Lang& language,
               QWidget* parent = nullptr);
    ~BindingRow() override;

    const GestureBinding& binding() const { return shown; }
    void setBinding(GestureBinding binding);

    // Whether a binding before it always runs in its place.
    void setShadowed(bool never);

    // Whether no binding runs now, because gestures are switched off.
    void setMuted(bool now);

    // The texts, in the language now.
    void retitle();

    bool showsPreview() const { return !popover.isNull(); }
    void togglePreview();
    void closePreview();

    // A ring is drawn around the selected row while keys go to it.
    enum class Selection { none, selected, selectedWithFocus };
    void setSelection(Selection now);
    bool isSelected() const { return selection != Selection::none; }

    // In reading order; what can have the focus.
    std::array<QAbstractButton*, 4> controls() const;

    // Puts the focus on the first of them.
    void enter();

    // Called when the focus leaves them to the leading side, for the row itself.
    std::function<void()> onLeave;

    // Called when the focus has come to one of them.
    std::function<void(Qt::FocusReason)> onFocusInside;

    // What a row is called that shows this binding.
    static QString spokenName(const GestureBinding& binding, const Lang& lang);

    // The same for every row, whatever script its texts are in.
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
    void nameForAssistance();
    void explain();
    void showEmphasis();
    bool leadsFocus(int key, QAbstractButton* from);
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
    GesturePreview* previewed = nullptr; // the popover's
};

} // namespace glidemap
