#include "ui/settings/activity_footer.h"

#include "ui/controls/elided_label.h"
#include "ui/controls/symbol_label.h"
#include "ui/theme/text.h"

#include <QHBoxLayout>

namespace glidemap {

namespace {
constexpr int padding = 8;
constexpr int spacing = 6;
constexpr int symbolSize = 14;
constexpr int applicationShare = 4;
} // namespace

ActivityFooter::ActivityFooter(QWidget* parent)
    : QWidget(parent), gesture(new StyledLabel(TextStyle::caption, Role::secondary, this)),
      action(new ElidedLabel(TextStyle::caption, Role::secondary, this)),
      application(new ElidedLabel(TextStyle::caption, Role::secondary, this)) {
    setObjectName("footer");
    gesture->setObjectName("footerGesture");
    action->setObjectName("footerAction");
    application->setObjectName("footerApplication");
    for (QLabel* label : {static_cast<QLabel*>(action), static_cast<QLabel*>(application)}) {
        label->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    }
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(padding, padding, padding, padding);
    layout->setSpacing(spacing);
    layout->addWidget(new SymbolLabel("waveform.path", Role::secondary, symbolSize, this));
    layout->addWidget(gesture);
    layout->addWidget(action);
    layout->addWidget(application);
    layout->addStretch(1);
}

// The application's name is less important than the action, so it gets only a fraction of the line.
void ActivityFooter::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    application->setMaximumWidth(width() / applicationShare);
}

void ActivityFooter::display(const GestureLogEntry* newest, const Lang& lang) {
    showGesture(newest, lang);
    showAction(newest, lang);
    showApplication(newest);
}

void ActivityFooter::showGesture(const GestureLogEntry* newest, const Lang& lang) {
    gesture->setRole(newest != nullptr ? Role::primary : Role::secondary);
    gesture->setText(toQt(
        newest != nullptr
            ? lang.choose("Last gesture: ", "最近手势：") + displayName(newest->gesture, lang)
            : lang.choose("Try drawing a circle on the trackpad…", "在触控板上试试画一个圆…")));
}

void ActivityFooter::showAction(const GestureLogEntry* newest, const Lang& lang) {
    action->setVisible(newest != nullptr);
    if (newest == nullptr) {
        return;
    }
    const bool isMatched = newest->matchedAction.has_value();
    action->setRole(isMatched ? Role::green : Role::secondary);
    action->setText(toQt(isMatched ? "→ " + *newest->matchedAction
                                   : lang.choose("(no matching binding)", "（无匹配绑定）")));
}

void ActivityFooter::showApplication(const GestureLogEntry* newest) {
    const bool isKnown = newest != nullptr && newest->appName.has_value();
    application->setVisible(isKnown);
    application->setText(isKnown ? toQt("@ " + *newest->appName) : QString());
}

} // namespace glidemap
