// A program with a window that records a shortcut. It reports events on standard output, one per
// line:
//
//   active             the window has the keyboard
//   inactive           another window has the keyboard
//   recording          recording has started, after a click on the window's button or the line
//                      "record" on standard input
//   captured           after the line "capture" on standard input: the window is recording, and
//                      receives the keys that the desktop reserves for itself
//   returned           after the line "return": the desktop has its keys again
//   recorded 0 40000   the key code, and the modifiers in hexadecimal
//   stopped            recording has ended without a shortcut
//   pressed 65         a key that reached the window, as Qt's number
//   released 65
//   closed             the window manager closed the window
//
// The program reports an event only after the desktop has processed all of the program's requests.
// It exits at the end of its standard input.
#include "platform/linux/keyboard/evdev_hardware_keys.h"
#include "platform/linux/shell/linux_desktop_keys.h"
#include "platform/linux/shell/wayland_connection.h"
#include "ui/recorder/shortcut_recorder_view.h"
#include "ui/recorder/toolkit_key_presses.h"

#include <unistd.h>
#include <wayland-client-core.h>

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QSocketNotifier>
#include <QTimer>
#include <QVBoxLayout>
#include <array>
#include <chrono>
#include <iostream>
#include <string>
#include <string_view>

namespace {

// Does nothing on X11, because capturing and returning the keys wait for the X server there.
void waitForWaylandCompositor() {
    if (const auto connection = glidemap::waylandConnection()) {
        wl_event_queue* const queue = wl_display_create_queue(connection->display);
        wl_display_roundtrip_queue(connection->display, queue);
        wl_event_queue_destroy(queue);
    }
}

constexpr std::chrono::milliseconds checkInterval{5};

class Window : public QWidget {
public:
    Window() : recorder(new glidemap::ShortcutRecorderView(keys, lang)) {
        auto* column = new QVBoxLayout(this);
        column->addWidget(recorder);
        recorder->setFocus();
        connect(&returnCheck, &QTimer::timeout, this, [this] { lookForReturn(); });
        connect(&captureCheck, &QTimer::timeout, this, [this] { lookForCapture(); });
        recorder->onRecord = [this](const glidemap::KeyShortcut& shortcut) {
            isRecording = false;
            say("recorded " + QString::number(shortcut.keyCode) + " " +
                QString::number(shortcut.modifiers, 16));
        };
    }

    void record() {
        recorder->startRecording();
        look();
    }

    // The compositor's confirmation causes no Qt event, so a timer checks for it.
    void reportCapture() { captureCheck.start(checkInterval); }

    void reportReturn() { returnCheck.start(checkInterval); }

    void look() {
        if (recorder->isRecording() != isRecording) {
            isRecording = !isRecording;
            say(isRecording ? "recording" : "stopped");
        }
    }

    void lookForCapture() {
        if (desktopKeys->areCaptured()) {
            captureCheck.stop();
            say("captured");
        }
    }

    void lookForReturn() {
        if (!desktopKeys->areCaptured()) {
            returnCheck.stop();
            say("returned");
        }
    }

protected:
    void changeEvent(QEvent* event) override {
        if (event->type() == QEvent::ActivationChange) {
            say(isActiveWindow() ? "active" : "inactive");
        }
        QWidget::changeEvent(event);
    }
    void closeEvent(QCloseEvent* event) override {
        say("closed");
        QWidget::closeEvent(event);
    }
    void keyPressEvent(QKeyEvent* event) override {
        say("pressed " + QString::number(event->key()));
    }
    void keyReleaseEvent(QKeyEvent* event) override {
        say("released " + QString::number(event->key()));
    }

private:
    static void say(const QString& what) {
        waitForWaylandCompositor();
        std::cout << what.toStdString() << std::endl;
    }

    glidemap::LinuxDesktopKeys* const desktopKeys = new glidemap::LinuxDesktopKeys;
    const std::shared_ptr<glidemap::KeyPresses> keys =
        std::make_shared<glidemap::ToolkitKeyPresses>(
            std::make_unique<glidemap::EvdevHardwareKeys>(),
            std::unique_ptr<glidemap::DesktopKeys>(desktopKeys));
    glidemap::Lang lang{nullptr};
    glidemap::ShortcutRecorderView* recorder;
    bool isRecording = false;
    QTimer captureCheck;
    QTimer returnCheck;
};

} // namespace

int main(int count, char** arguments) {
    const QApplication application(count, arguments);
    Window window;
    const QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &window, [&window] {
        std::array<char, 256> buffer{};
        const ssize_t size = read(STDIN_FILENO, buffer.data(), buffer.size());
        if (size <= 0) {
            QCoreApplication::quit();
            return;
        }
        const std::string_view line(buffer.data(), static_cast<std::size_t>(size));
        if (line == "record\n") {
            window.record();
        } else if (line == "capture\n") {
            window.reportCapture();
        } else if (line == "return\n") {
            window.reportReturn();
        }
    });
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock,
                     &window, [&window] { window.look(); });
    window.show();
    return QApplication::exec();
}
