// The application's main menu: its texts are English whatever the language of the interface.
//
// Where the desktop has one menu bar for all programs it stands there. Where it has none, its key
// equivalents work in the windows that it is installed in.
//
// Thread:  the main thread.
// Owner:   the application's delegate.
// Errors:  none. An editing command goes to whatever has the keyboard focus, if that knows it.
#pragma once

#include <QAction>
#include <QList>
#include <QMenuBar>
#include <functional>

class QWidget;

namespace glidemap {

class MainMenu {
public:
    explicit MainMenu(const std::function<void()>& terminate);

    void installIn(QWidget& window);

    const QMenuBar& bar() const { return menuBar; }

private:
    void addEditMenu();
    void addCommand(QMenu& menu, const char* title, const char* command, const char* keys);
    void add(QAction* action, const char* keys);

    QMenuBar menuBar{nullptr};
    QList<QAction*> actions; // owned by their menus
};

} // namespace glidemap
