// A quiet bar that says which binding was deleted, and offers to bring it back: by its button, or by the keys for undoing, which
// are its own while it is shown. It goes by itself after a while.
//
// Thread:  the main thread.
// Owner:   the settings view, which hides it when there is nothing to bring back any more.
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

    explicit UndoBar(const Lang& language, QWidget* parent = nullptr,
                     std::chrono::milliseconds stay = usualStay);

    // Shows it, for as long as it stays.
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
