// The application's main menu. Its texts are English in every interface language.
//
// If the desktop has a global menu bar, the menu appears there. Otherwise its shortcuts work in the
// windows in which it is installed.
//
// Thread:  the main thread.
// Owner:   the application's delegate.
// Errors:  none. An editing command goes to the widget with the keyboard focus, which may ignore
//          it.
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
