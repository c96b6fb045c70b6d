#include "platform/qt/session_end.h"

#include <QEvent>
#include <QGuiApplication>
#include <QObject>
#include <QSessionManager>
#include <utility>

namespace glidemap {

// Handles Qt's quit event. By default, Qt asks every window to close, and a window could cancel the
// end of the session.
class SessionEnd::Listener : public QObject {
public:
    explicit Listener(std::function<void()> onRequest) : onRequest(std::move(onRequest)) {
        qGuiApp->installEventFilter(this);
        connect(qGuiApp, &QGuiApplication::saveStateRequest, this, [](QSessionManager& manager) {
            manager.setRestartHint(QSessionManager::RestartNever);
        });
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched != qGuiApp || event->type() != QEvent::Quit) {
            return false;
        }
        onRequest();
        return true;
    }

private:
    const std::function<void()> onRequest;
};

SessionEnd::SessionEnd(std::function<void()> onRequest)
    : listener(std::make_unique<Listener>(std::move(onRequest))) {}

SessionEnd::~SessionEnd() = default;

} // namespace glidemap
