// A bar that names the deleted binding and offers to restore it, with a button or the undo
// shortcut. While visible, the bar handles this shortcut. It hides after a time-out.
//
// Thread:  the main thread.
// Owner:   the settings view, which hides the bar when undo becomes impossible.
// Errors:  none.
#pragma once

#include "core/gesture_type.h"
#include "core/lang.h"
#include "ui/theme/theme.h"

#include <QTimer>
#include <QWidget>
#include <chrono>
#include <functional>

class QPushButton;

namespace glidemap {

class ElidedLabel;

class UndoBar : public QWidget {
public:
    static constexpr std::chrono::milliseconds usualStay{10000};

    explicit UndoBar(const Lang& lang, QWidget* parent = nullptr,
                     std::chrono::milliseconds stay = usualStay);

    // Shows the bar and starts its time-out.
    void offer(GestureType deleted);
    void retitle();

    std::function<void()> onUndo;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void announce();
    bool takesKey(QEvent& event);
    void undo();

    const Lang& lang;
    GestureType gesture{};
    ElidedLabel* label;
    QPushButton* button;
    QTimer leaving;
    Subscription toTheme;
};

} // namespace glidemap
