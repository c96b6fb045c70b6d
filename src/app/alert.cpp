#include "app/alert.h"

#include <QCoreApplication>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <utility>

namespace glidemap {

namespace {

constexpr QSize iconSize(56, 56);
// The minimum width of the text in points. It prevents narrow columns of text, and gives all alerts
// a similar shape.
constexpr int minTextWidth = 340;

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

// Makes the message bold, and the informative text at least minTextWidth wide.
void styleTexts(const QMessageBox& alert) {
    if (QLabel* const message = labelThatShows(alert, alert.text()); message != nullptr) {
        QFont bold;
        bold.setWeight(QFont::DemiBold);
        message->setFont(bold);
    }
    if (QLabel* const rest = labelThatShows(alert, alert.informativeText()); rest != nullptr) {
        rest->setMinimumWidth(minTextWidth);
    }
}

} // namespace

AlertText informationalAlert(std::string message, std::string informative, const Lang& lang) {
    return {std::move(message), std::move(informative), {lang.choose("OK", "好")}};
}

Alert::Alert(Texts texts, Lang& lang, QWidget* parent)
    : QMessageBox(parent), texts(std::move(texts)), lang(lang) {
    setObjectName("alert");
    setWindowTitle("Glidemap");
    // A native alert could not change its texts while it is open.
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    // Uses the style's icon, because on some systems the program has no window icon.
    setIconPixmap(style()
                      ->standardIcon(QStyle::SP_MessageBoxInformation)
                      .pixmap(iconSize, devicePixelRatio()));
    addButtons(this->texts(lang).buttons.size());
    retitle();
    styleTexts(*this);
    for (QLabel* label : findChildren<QLabel*>()) {
        label->setTextFormat(Qt::PlainText);
    }
    toLanguage = lang.changes().subscribe({}, [this] { retitle(); });
}

void Alert::addButtons(std::size_t count) {
    for (std::size_t number = 0; number < count; ++number) {
        QPushButton* button = addButton(QString(), number == 0 ? AcceptRole : RejectRole);
        if (number == 0) {
            first = button;
            button->setProperty("prominent", true);
            setDefaultButton(button);
        }
        setEscapeButton(button);
        inOrder.push_back(button);
    }
}

void Alert::retitle() {
    const AlertText text = texts(lang);
    setText(toQt(text.message));
    setInformativeText(toQt(text.informative));
    for (std::size_t number = 0; number < inOrder.size(); ++number) {
        inOrder[number]->setText(toQt(text.buttons[number]));
    }
}

} // namespace glidemap
