// A window that records its key events: "+65" is a press of Qt's key 65, and "-65" its release. An
// auto-repeat consists of "-65 again" and "+65 again".
#pragma once

#include <QKeyEvent>
#include <QWidget>
#include <string>
#include <utility>
#include <vector>

namespace glidemap {

class KeyLog : public QWidget {
public:
    // Returns the keys since the last call.
    std::vector<std::string> keys() { return std::exchange(seen, {}); }

    // Returns only the presses since the last call. In some versions of Qt, a text field does not
    // accept releases, so they also reach the window.
    std::vector<std::string> presses() {
        std::vector<std::string> pressed = keys();
        std::erase_if(pressed, [](const std::string& key) { return key.starts_with('-'); });
        return pressed;
    }

protected:
    void keyPressEvent(QKeyEvent* event) override { write("+", *event); }
    void keyReleaseEvent(QKeyEvent* event) override { write("-", *event); }

private:
    void write(const char* sign, const QKeyEvent& event) {
        seen.push_back(sign + std::to_string(event.key()) + (event.isAutoRepeat() ? " again" : ""));
    }

    std::vector<std::string> seen;
};

} // namespace glidemap
