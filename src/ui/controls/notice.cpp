#include "ui/controls/notice.h"

#include "ui/controls/accessible_role.h"
#include "ui/controls/symbol_label.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

namespace glidemap {

// Prefers a single line, and wraps only if the notice is too narrow for it. A plain QLabel with
// word wrap prefers two lines even where one fits.
class Notice::Text : public StyledLabel {
public:
    using StyledLabel::StyledLabel;

    QSize sizeHint() const override {
        const int width = qRound(lineSize().width()) + 2;
        return {width, heightForWidth(width)};
    }
    QSize minimumSizeHint() const override {
        return {fontMetrics().averageCharWidth() * 12, fontMetrics().height()};
    }
};

Notice::Notice(const Look& look, QWidget* parent)
    : QFrame(parent), look(look), label(new Text(TextStyle::callout, look.textRole, this)),
      second(new Text(TextStyle::caption, Role::secondary, this)) {
    presentAs<Notice, QAccessible::Notification>();
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(12, 8, 12, 8);
    layout->setSpacing(8);
    if (!look.symbol.empty()) {
        layout->addWidget(new SymbolLabel(look.symbol, look.symbolRole, 16, this));
    }
    label->setWordWrap(true);
    second->setWordWrap(true);
    second->setTextInteractionFlags(Qt::TextSelectableByMouse);
    second->hide();
    auto* texts = new QVBoxLayout;
    texts->setSpacing(2);
    texts->addWidget(label);
    texts->addWidget(second);
    layout->addLayout(texts, look.buttonAtEnd ? 1 : 0);
    if (look.button != Button::none) {
        pushButton = new QPushButton(this);
        pushButton->setProperty("prominent", look.button == Button::prominent);
        connect(pushButton, &QPushButton::clicked, this, [this] {
            if (onButton) {
                onButton();
            }
        });
        layout->addWidget(pushButton);
    }
    if (!look.buttonAtEnd) {
        layout->addStretch(1);
    }
    toTheme = Theme::shared().changes().subscribe({}, [this] { update(); });
}

void Notice::setText(const QString& text) {
    label->setText(text);
}

void Notice::setSecondLine(const QString& text) {
    second->setText(text);
    second->setVisible(!text.isEmpty());
}

QString Notice::secondLine() const {
    return second->text();
}

void Notice::setButtonText(const QString& text) {
    pushButton->setText(text);
}

QString Notice::text() const {
    return label->text();
}

void Notice::paintEvent(QPaintEvent* /*event*/) {
    if (look.groundOpacity > 0) {
        QPainter(this).fillRect(rect(), Theme::shared().tint(look.ground, look.groundOpacity));
    }
}

} // namespace glidemap
