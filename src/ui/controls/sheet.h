// A dialog that hangs from the top of its window, which waits, dimmed, until the sheet has gone.
//
// Where the system shows sheets, it places, rounds and moves this one, too, and dims the window: then this only fills it. Elsewhere
// it is a window of its own, because it may be larger than the one it hangs from. Its corners are
// round and it casts a shadow where the desktop can show what lies behind a window; elsewhere its
// shape is cut out.
//
// Units:   points.
// Thread:  the main thread.
// Owner:   its window; deletes itself when it has been closed.
// Errors:  none. On a screen too small for it, it is as large as fits and its content scrolls.
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
    // `content` becomes the sheet's. `size` is the content's, where the screen has room for it.
    Sheet(QWidget* hangsFrom, QWidget* content, QSize size);
    ~Sheet() override;

    // Called once, when it has been closed, however that came.
    std::function<void()> onClosed;

    void present();
    void dismiss();

    // The sheet without its shadow, on the screen.
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
    QRect placed;   // where the card belongs
    bool isSystems; // the system shows it
    bool isTranslucent;
    bool hasClosed = false;
    Slide arrival{this, [this] {
                      moveToPlace();
                  }};
    Subscription toTheme;
};

} // namespace glidemap
