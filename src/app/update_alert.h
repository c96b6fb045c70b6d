// What a check for updates that the user has asked for came to, in words and as an alert.
//
// Thread:  the main thread.
// Errors:  none. Why a check failed is not for the user's eyes: every failure reads the same.
#pragma once

#include "app/update_checker.h"
#include "core/lang.h"

#include <QMessageBox>
#include <optional>
#include <string>
#include <vector>

namespace glidemap {

struct UpdateAlertText {
    std::string message;
    std::string informative;
    std::vector<std::string> buttons; // the first is the one that Return presses

    friend bool operator==(const UpdateAlertText&, const UpdateAlertText&) = default;
};

UpdateAlertText updateAlertText(const UpdateResult& result,
                                const std::optional<std::string>& currentVersion, const Lang& lang);

class UpdateAlert : public QMessageBox {
public:
    explicit UpdateAlert(const UpdateAlertText& text, QWidget* parent = nullptr);

    // Whether the alert was ended by its first button.
    bool firstButtonWasChosen() const { return clickedButton() == first; }

private:
    QAbstractButton* first = nullptr;
};

} // namespace glidemap
