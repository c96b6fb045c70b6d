// The application's main menu. Its texts are in English, independent of the interface language.
//
// The menu appears in the desktop's global menu bar, if there is one. Otherwise only its shortcuts
// work, in the windows in which the menu is installed.
//
// Thread:  the main thread.
// Owner:   the application's delegate.
// Errors:  none. Editing commands are sent to the focused widget, which may ignore them.
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
