#include "ui/settings/empty_state.h"

#include "ui/controls/styled_label.h"
#include "ui/controls/symbol_label.h"
#include "ui/theme/text.h"

#include <QVBoxLayout>

namespace glidemap {

namespace {
constexpr int padding = 12;
constexpr int drawingSize = 64;
} // namespace

EmptyState::EmptyState(QWidget* parent)
    : QWidget(parent), text(new StyledLabel(TextStyle::body, Role::secondary, this)) {
    setObjectName("emptyState");
    text->setObjectName("emptyStateText");
    text->setAlignment(Qt::AlignCenter);
    text->setWordWrap(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(padding, padding, padding, padding);
    layout->setSpacing(16);
    layout->addStretch(1);
    layout->addWidget(new SymbolLabel("hand.draw", Role::tertiary, drawingSize, this), 0,
                      Qt::AlignHCenter);
    layout->addWidget(text);
    layout->addStretch(1);
}

void EmptyState::retitle(const Lang& lang) {
    text->setText(toQt(lang.choose(
        "No bindings yet — click \"Add Binding\" in the top-right corner to create one.",
        "还没有绑定，点右上角「添加绑定」创建一个。")));
}

} // namespace glidemap
