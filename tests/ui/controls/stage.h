// A window for a control under test, and functions that read the control's accessible properties.
#pragma once

#include "kit/qt_waiting.h"
#include "ui/theme/theme.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QVBoxLayout>
#include <QWidget>

namespace glidemap::test {

class ControlsStage : public QWidget {
public:
    ControlsStage() {
        resize(700, 500);
        new QVBoxLayout(this);
    }

    template <typename Control>
    Control* add(Control* control) {
        layout()->addWidget(control);
        return control;
    }

    void open() {
        show();
        activateWindow();
        setFocus();
        EXPECT_TRUE(waitForWindowActive(this));
    }
};

// Disables animations, so that tests see final positions.
class InStillness {
public:
    InStillness() { Theme::shared().pinReducedMotion(true); }
    ~InStillness() { Theme::shared().pinReducedMotion(false); }
};

inline QAccessible::Role roleOf(QWidget* widget) {
    return QAccessible::queryAccessibleInterface(widget)->role();
}

inline QString nameOf(QWidget* widget) {
    return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
}

inline QAccessible::State stateOf(QWidget* widget) {
    return QAccessible::queryAccessibleInterface(widget)->state();
}

} // namespace glidemap::test
