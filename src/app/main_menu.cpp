#include "app/main_menu.h"

#include <QApplication>
#include <QKeySequence>
#include <QMenu>
#include <QMetaObject>

namespace glidemap {

namespace {

// Calls the slot named `command` of the focused widget, if it has one. Qt's text fields have a slot
// for each command of the Edit menu.
void sendToFocus(const char* command) {
    QWidget* focus = QApplication::focusWidget();
    const QByteArray signature = QMetaObject::normalizedSignature((QByteArray(command) + "()"));
    if (focus != nullptr && focus->metaObject()->indexOfMethod(signature) >= 0) {
        QMetaObject::invokeMethod(focus, command);
    }
}

} // namespace

MainMenu::MainMenu(const std::function<void()>& terminate) {
    QMenu* application = menuBar.addMenu(QString());
    QAction* quit = application->addAction("Quit Glidemap");
    quit->setMenuRole(QAction::QuitRole);
    QObject::connect(quit, &QAction::triggered, quit, terminate);
    add(quit, "Ctrl+Q");
    addEditMenu();
}

void MainMenu::addEditMenu() {
    QMenu* edit = menuBar.addMenu("Edit");
    addCommand(*edit, "Undo", "undo", "Ctrl+Z");
    addCommand(*edit, "Redo", "redo", "Ctrl+Shift+Z");
    edit->addSeparator();
    addCommand(*edit, "Cut", "cut", "Ctrl+X");
    addCommand(*edit, "Copy", "copy", "Ctrl+C");
    addCommand(*edit, "Paste", "paste", "Ctrl+V");
    addCommand(*edit, "Select All", "selectAll", "Ctrl+A");
}

void MainMenu::addCommand(QMenu& menu, const char* title, const char* command, const char* keys) {
    QAction* action = menu.addAction(title);
    QObject::connect(action, &QAction::triggered, action, [command] { sendToFocus(command); });
    add(action, keys);
}

void MainMenu::add(QAction* action, const char* keys) {
    action->setShortcut(QKeySequence(keys));
    actions.append(action);
}

void MainMenu::installIn(QWidget& window) {
    window.addActions(actions);
}

} // namespace glidemap
