// A program with a window that records a shortcut. It reports events on standard output, one per
// line:
//
//   active             the window has the keyboard
//   inactive           another window has the keyboard
//   recording          it records, after a click on its button or the line "record" on its standard
//                      input
//   recorded 0 40000   the key code, and the modifiers in hexadecimal
//   stopped            it stopped recording without a shortcut
//   pressed 65         a key that reached the window, as Qt's number
//   released 65
//   closed             the window manager closed the window
//
// It exits at the end of its input.
#include "platform/linux/keyboard/evdev_hardware_keys.h"
#include "platform/linux/shell/linux_desktop_keys.h"
#include "ui/recorder/shortcut_recorder_view.h"
#include "ui/recorder/toolkit_key_presses.h"

#include <unistd.h>

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QSocketNotifier>
#include <QVBoxLayout>
#include <array>
#include <iostream>
#include <string>
#include <string_view>

namespace {

class Window : public QWidget {
public:
    Window() : recorder(new glidemap::ShortcutRecorderView(keys, lang)) {
        auto* column = new QVBoxLayout(this);
        column->addWidget(recorder);
        recorder->setFocus();
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

    void look() {
        if (recorder->isRecording() != isRecording) {
            isRecording = !isRecording;
            say(isRecording ? "recording" : "stopped");
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
    static void say(const QString& what) { std::cout << what.toStdString() << std::endl; }

    const std::shared_ptr<glidemap::KeyPresses> keys =
        std::make_shared<glidemap::ToolkitKeyPresses>(
            std::make_unique<glidemap::EvdevHardwareKeys>(),
            std::make_unique<glidemap::LinuxDesktopKeys>());
    glidemap::Lang lang{nullptr};
    glidemap::ShortcutRecorderView* recorder;
    bool isRecording = false;
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
        } else if (std::string_view(buffer.data(), static_cast<std::size_t>(size)) == "record\n") {
            window.record();
        }
    });
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock,
                     &window, [&window] { window.look(); });
    window.show();
    return QApplication::exec();
}
