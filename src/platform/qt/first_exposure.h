// Says when the first window of the program can be seen.
//
// Thread:  the main thread, within the application object's life.
// Owner:   whoever waits for it.
// Errors:  none. Without a window it says nothing.
#pragma once

#include <QObject>
#include <functional>

namespace glidemap {

class FirstExposure : public QObject {
public:
    // Calls `seen` once.
    explicit FirstExposure(std::function<void()> seen);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::function<void()> onSeen;
};

} // namespace glidemap
