// interface_yardstick [--no-window]: shows a Qt Widgets window with twenty check boxes and nothing
// else. Its cost is that of the toolkit, the reference for the program's figures. With --no-window,
// it only loads the toolkit, prints "ready" and waits.
#include "platform/qt/termination_signals.h"

#include <QApplication>
#include <QCheckBox>
#include <QVBoxLayout>
#include <cstdio>
#include <cstring>

int main(int count, char* arguments[]) {
    QApplication application(count, arguments);
    const glidemap::TerminationSignals endings(&QCoreApplication::quit);
    if (count > 1 && std::strcmp(arguments[1], "--no-window") == 0) {
        std::puts("ready");
        std::fflush(stdout);
        return QApplication::exec();
    }
    QWidget window;
    window.setWindowTitle("Yardstick");
    auto* layout = new QVBoxLayout(&window);
    for (int box = 1; box <= 20; ++box) {
        layout->addWidget(new QCheckBox(QString("Check box %1").arg(box)));
    }
    window.resize(720, 520);
    window.show();
    return QApplication::exec();
}
