// A dialog at the top of its window. The window is dimmed and blocked until the sheet closes.
//
// If the system has native sheets, it positions, rounds and animates this one, too, and dims the
// window; this class then only provides the content. Elsewhere the sheet is a separate window,
// because it may be larger than its parent window. It has round corners and a shadow if the desktop
// supports translucent windows; otherwise its shape is masked.
//
// Units:   points.
// Thread:  the main thread.
// Owner:   its window. Deletes itself after closing.
// Errors:  none. On a small screen it shrinks to fit and its content scrolls.
#pragma once

#include "ui/controls/slide.h"
#include "ui/theme/theme.h"

#include <QDialog>
#include <QPointer>
#include <functional>

class QScrollArea;

namespace glidemap {

class Sheet : public QDialog {
public:
    // Takes ownership of `content`. `size` is the content's size, if the screen has room for it.
    Sheet(QWidget* anchorWidget, QWidget* content, QSize size);
    ~Sheet() override;

    // Called once after closing, for any cause.
    std::function<void()> onClosed;

    void present();
    void dismiss();

    // The sheet without its shadow, in screen coordinates.
    QRect cardGeometry() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    class Veil;

    QWidget* owner() const { return parentWidget(); }
    int shadowMargin() const;
    void fitToScreen();
    void place();
    void moveToPlace();

    QSize wanted;
    QScrollArea* scroller;
    QPointer<Veil> veil;
    QRect placed;  // the card's final rectangle
    bool isNative; // the system shows it as a native sheet
    bool isTranslucent;
    bool hasClosed = false;
    Slide arrival{this, [this] {
                      moveToPlace();
                  }};
    Subscription toTheme;
};

} // namespace glidemap
