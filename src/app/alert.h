// A message of the program's own, with its buttons.
//
// Thread:  the main thread.
// Owner:   whoever shows it.
// Errors:  none. Texts are shown as they are and never taken for markup: some come from outside.
#pragma once

#include <QMessageBox>
#include <string>
#include <vector>

class QAbstractButton;

namespace glidemap {

struct AlertText {
    std::string message;
    std::string informative;
    std::vector<std::string> buttons; // Return presses the first, Escape the last

    friend bool operator==(const AlertText&, const AlertText&) = default;
};

class Alert : public QMessageBox {
public:
    explicit Alert(const AlertText& text, QWidget* parent = nullptr);

    // Whether it was ended by its first button.
    bool firstButtonWasChosen() const { return clickedButton() == first; }

private:
    QAbstractButton* first = nullptr;
};

} // namespace glidemap
