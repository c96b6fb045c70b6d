// An alert: a message with buttons. While the alert is open, its texts follow the interface
// language. Native alerts cannot do this, so Qt draws the alert on every system.
//
// Thread:  the main thread.
// Owner:   the caller that shows it. `lang` must outlive the alert.
// Errors:  none. Texts are shown as plain text, never as markup, because some of them come from
//          outside the program.
#pragma once

#include "core/lang.h"

#include <QMessageBox>
#include <functional>
#include <string>
#include <vector>

class QAbstractButton;

namespace glidemap {

struct AlertText {
    std::string message;
    std::string informative;
    std::vector<std::string> buttons; // Return presses the first button, Escape the last

    friend bool operator==(const AlertText&, const AlertText&) = default;
};

// Returns the texts of an alert with only an OK button.
AlertText informationalAlert(std::string message, std::string informative, const Lang& lang);

class Alert : public QMessageBox {
public:
    // Must return the same number of buttons for each language.
    using Texts = std::function<AlertText(const Lang&)>;

    Alert(Texts texts, Lang& lang, QWidget* parent = nullptr);

    bool isFirstButtonChosen() const { return clickedButton() == first; }

private:
    void addButtons(std::size_t count);
    void retitle();

    const Texts texts;
    Lang& lang;
    QAbstractButton* first = nullptr;
    std::vector<QAbstractButton*> inOrder;
    Subscription toLanguage;
};

} // namespace glidemap
