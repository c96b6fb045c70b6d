// A dialog that hangs from the top of its window, which waits, dimmed, until the sheet has gone.
//
// It is a window of its own, because it may be larger than the one it hangs from.
//
// Units:   points.
// Thread:  the main thread.
// Owner:   its window; deletes itself when it has been closed.
// Errors:  none. On a screen too small for it, it is as large as fits and its content scrolls.
#pragma once

#include "ui/theme/theme.h"

#include <QDialog>
#include <functional>

namespace glidemap {

class Sheet : public QDialog {
public:
    // `content` becomes the sheet's and asks for the size by its own.
    Sheet(QWidget* hangsFrom, QWidget* content, QSize size);

    // Called once, when it has been closed, however that came.
    std::function<void()> onClosed;

    void present();
    void dismiss();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Subscription toTheme;
};

} // namespace glidemap
