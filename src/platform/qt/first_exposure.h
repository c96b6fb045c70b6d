// Notifies when the program's first window becomes visible.
//
// Thread:  the main thread, while the application object exists.
// Owner:   the code that waits for the window.
// Errors:  none. If no window appears, `onSeen` is not called.
#pragma once

#include <QObject>
#include <functional>

namespace glidemap {

class FirstExposure : public QObject {
public:
    // `onSeen` is called once.
    explicit FirstExposure(std::function<void()> onSeen);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::function<void()> onSeen;
};

} // namespace glidemap
