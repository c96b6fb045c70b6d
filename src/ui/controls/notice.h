// A tinted bar across a window that shows a message, optionally with a button.
//
// Thread:  the main thread.
// Owner:   its parent.
// Errors:  none. Long texts wrap.
#pragma once

#include "ui/controls/styled_label.h"
#include "ui/theme/theme.h"

#include <QFrame>
#include <functional>
#include <string_view>

class QPushButton;

namespace glidemap {

class Notice : public QFrame {
public:
    enum class Button { none, plain, prominent };

    struct Look {
        std::string_view symbol; // may be empty
        Role symbolRole = Role::primary;
        Role textRole = Role::primary;
        Role ground = Role::window; // the tint's colour
        double groundOpacity = 0;   // 0: no tint
        Button button = Button::none;
        bool buttonAtEnd = true; // false: the button follows the text directly
    };

    explicit Notice(const Look& look, QWidget* parent = nullptr);

    void setText(const QString& text);
    // Sets a small, pale, selectable text below the message. An empty text removes it.
    void setSecondLine(const QString& text);
    QString secondLine() const;
    void setButtonText(const QString& text);
    QString text() const;
    QPushButton* button() const { return pushButton; }

    std::function<void()> onButton;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    class Text;

    Look look;
    Text* label;
    Text* second;
    QPushButton* pushButton = nullptr;
    Subscription toTheme;
};

} // namespace glidemap
