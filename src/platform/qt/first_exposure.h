// Reports when the program's first window becomes visible.
//
// Thread:  the main thread, while the application object exists.
// Owner:   the code that waits for the window.
// Errors:  none. Without a window `seen` is not called.
#pragma once

#include <QObject>
#include <functional>

namespace glidemap {

class FirstExposure : public QObject {
public:
    // Calls the function once.
    explicit FirstExposure(std::function<void()> onSeen);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::function<void()> onSeen;
};

} // namespace glidemap
