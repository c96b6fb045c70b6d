// A modal dialog at the top of its window. The window is dimmed and blocked until the sheet closes.
//
// If the system has native sheets, the system positions, rounds and animates the sheet and dims the
// window; this class only provides the content. Otherwise the sheet is a separate window, because
// it may be larger than its parent window. The corners of the sheet are round. The sheet has a
// shadow if the desktop supports translucent windows; otherwise a mask cuts the corners.
//
// Units:   points.
// Thread:  the main thread.
// Owner:   its window. The sheet deletes itself after closing.
// Errors:  none. The sheet grows with its content's minimum width. On a small screen it shrinks,
//          and its content scrolls.
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
    // Takes ownership of `content`. `size` is the size of the content, unless the content needs
    // more width or the screen is too small.
    Sheet(QWidget* anchorWidget, QWidget* content, QSize size);
    ~Sheet() override;

    // Called once after the sheet has closed, for any reason.
    std::function<void()> onClosed;

    void present();
    void dismiss();

    // Returns the geometry of the sheet without its shadow, in screen coordinates.
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
    QRect placed;  // the card's rectangle after the animation
    bool isNative; // the system shows it as a native sheet
    bool isTranslucent;
    bool hasClosed = false;
    Slide arrival{this, [this] {
                      moveToPlace();
                  }};
    Subscription toTheme;
};

} // namespace glidemap
