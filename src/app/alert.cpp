#include "app/alert.h"

#include <QLabel>
#include <QPushButton>

namespace glidemap {

namespace {

QString toQt(const std::string& text) {
    return QString::fromStdString(text);
}

} // namespace

Alert::Alert(const AlertText& text, QWidget* parent) : QMessageBox(parent) {
    setObjectName("alert");
    setWindowTitle("Glidemap");
    setText(toQt(text.message));
    setInformativeText(toQt(text.informative));
    for (QLabel* label : findChildren<QLabel*>()) {
        label->setTextFormat(Qt::PlainText);
    }
    for (const std::string& title : text.buttons) {
        QPushButton* button = addButton(toQt(title), first == nullptr ? AcceptRole : RejectRole);
        if (first == nullptr) {
            first = button;
            button->setProperty("prominent", true);
            setDefaultButton(button);
        }
        setEscapeButton(button);
    }
}

} // namespace glidemap
