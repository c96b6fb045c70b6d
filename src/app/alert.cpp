#include "app/alert.h"

#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>

namespace glidemap {

namespace {

constexpr QSize iconSize(56, 56);
constexpr int leastTextWidth = 340; // sentences break late, and every alert is of one shape

QString toQt(const std::string& text) {
    return QString::fromStdString(text);
}

QLabel* labelThatShows(const QWidget& alert, const QString& text) {
    for (QLabel* const label : alert.findChildren<QLabel*>()) {
        if (label->text() == text) {
            return label;
        }
    }
    return nullptr;
}

// The message stands out as a headline over what explains it.
void dressTexts(const QMessageBox& alert) {
    if (QLabel* const message = labelThatShows(alert, alert.text()); message != nullptr) {
        QFont bold;
        bold.setWeight(QFont::DemiBold);
        message->setFont(bold);
    }
    if (QLabel* const rest = labelThatShows(alert, alert.informativeText()); rest != nullptr) {
        rest->setMinimumWidth(leastTextWidth);
    }
}

} // namespace

Alert::Alert(const AlertText& text, QWidget* parent) : QMessageBox(parent) {
    setObjectName("alert");
    setWindowTitle("Glidemap");
    setText(toQt(text.message));
    setInformativeText(toQt(text.informative));
    setIconPixmap(QGuiApplication::windowIcon().pixmap(iconSize, devicePixelRatio()));
    dressTexts(*this);
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
