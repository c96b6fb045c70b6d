#include "platform/qt/session_end.h"

#include <QEvent>
#include <QGuiApplication>
#include <QObject>
#include <QSessionManager>
#include <utility>

namespace glidemap {

// By default Qt asks every window to close and cancels the end if a window refuses.
class SessionEnd::Listener : public QObject {
public:
    explicit Listener(std::function<void()> reported) : asked(std::move(reported)) {
        qGuiApp->installEventFilter(this);
        connect(qGuiApp, &QGuiApplication::saveStateRequest, this, [](QSessionManager& manager) {
            manager.setRestartHint(QSessionManager::RestartNever);
        });
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched != qGuiApp || event->type() != QEvent::Quit) {
            return false;
        }
        asked();
        return true;
    }

private:
    const std::function<void()> asked;
};

SessionEnd::SessionEnd(std::function<void()> asked)
    : listener(std::make_unique<Listener>(std::move(asked))) {}

SessionEnd::~SessionEnd() = default;

} // namespace glidemap
