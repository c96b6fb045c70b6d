#include "ui/theme/theme.h"

#include <QApplication>

int main(int count, char* arguments[]) {
    QApplication application(count, arguments);
    glidemap::Theme::shared().applyTo(application);
    return 0;
}
