// A window that records its keys: "+65" is Qt's key 65 pressed, "-65" released, "+65 again" a
// repetition.
#pragma once

#include <QKeyEvent>
#include <QWidget>
#include <string>
#include <utility>
#include <vector>

namespace glidemap {

class KeyLog : public QWidget {
public:
    // The keys since the last call.
    std::vector<std::string> keys() { return std::exchange(seen, {}); }

    // The same without releases, which some versions of Qt's text field do not accept.
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
