// Finds a part of a window by its name. Qt's search by type supports only classes with a meta
// object.
#pragma once

#include <QString>
#include <QWidget>
#include <stdexcept>
#include <string>
#include <vector>

namespace glidemap::test {

// Throws if no widget with this name and type exists; the exception fails the test.
template <class Widget = QWidget>
Widget& find(const QWidget& within, const char* name) {
    auto* const found = dynamic_cast<Widget*>(within.findChild<QWidget*>(QString::fromUtf8(name)));
    if (found == nullptr) {
        throw std::runtime_error("there is no " + std::string(name));
    }
    return *found;
}

// Returns all widgets of this type, parents before their children.
template <class Widget>
std::vector<Widget*> findAll(const QWidget& within) {
    std::vector<Widget*> found;
    for (QWidget* const widget : within.findChildren<QWidget*>()) {
        if (auto* const match = dynamic_cast<Widget*>(widget)) {
            found.push_back(match);
        }
    }
    return found;
}

} // namespace glidemap::test
