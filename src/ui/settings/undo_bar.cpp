#include "ui/settings/undo_bar.h"

#include "ui/controls/accessible_role.h"
#include "ui/controls/elided_label.h"
#include "ui/theme/style/paint.h"
#include "ui/theme/text.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QPushButton>

namespace glidemap {

UndoBar::UndoBar(const Lang& lang, QWidget* parent, std::chrono::milliseconds stay)
    : QWidget(parent), lang(lang), label(new ElidedLabel(TextStyle::callout, Role::primary, this)),
      button(new QPushButton(this)) {
    presentAs<UndoBar, QAccessible::Notification>();
    setObjectName("undoBar");
    label->setObjectName("undoText");
    button->setObjectName("undo");
    button->setAutoDefault(false);
    button->installEventFilter(this);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(12, 6, 12, 6);
    row->setSpacing(8);
    row->addWidget(label, 1);
    row->addWidget(button);
    leaving.setSingleShot(true);
    leaving.setInterval(stay);
    connect(&leaving, &QTimer::timeout, this, &QWidget::hide);
    connect(button, &QPushButton::clicked, this, [this] { undo(); });
    toTheme = Theme::shared().changes().subscribe({}, [this] { update(); });
    hide();
}

void UndoBar::offer(GestureType deleted) {
    gesture = deleted;
    retitle();
    show();
    leaving.start();
    announce();
}

void UndoBar::retitle() {
    const std::string name = displayName(gesture, lang);
    const QString text = toQt(lang.choose("Deleted “" + name + "”", "已删除“" + name + "”"));
    label->setText(text);
    setAccessibleName(text);
    const QString undo = toQt(lang.choose("Undo", "撤销"));
    button->setText(undo);
    button->setAccessibleName(undo);
}

void UndoBar::announce() {
    if (QAccessible::isActive()) {
        QAccessibleEvent said(this, QAccessible::Alert);
        QAccessible::updateAccessibility(&said);
    }
}

void UndoBar::undo() {
    hide();
    if (onUndo) {
        onUndo();
    }
}

// Filters the events of the window, because keys that no control accepts are delivered to the
// window.
void UndoBar::showEvent(QShowEvent* event) {
    window()->installEventFilter(this);
    QWidget::showEvent(event);
}

void UndoBar::hideEvent(QHideEvent* event) {
    window()->removeEventFilter(this);
    QWidget::hideEvent(event);
}

// The bar may appear under the pointer right after a click on a delete button. If that click was
// the first of a double click, the second must not undo.
bool UndoBar::eventFilter(QObject* watched, QEvent* event) {
    return watched == button ? event->type() == QEvent::MouseButtonDblClick : takesKey(*event);
}

bool UndoBar::takesKey(QEvent& event) {
    const bool isOverride = event.type() == QEvent::ShortcutOverride;
    if ((!isOverride && event.type() != QEvent::KeyPress) ||
        !static_cast<QKeyEvent&>(event).matches(QKeySequence::Undo)) {
        return false;
    }
    event.accept(); // the bar handles the key, so that it does not trigger a menu shortcut
    if (!isOverride && !static_cast<QKeyEvent&>(event).isAutoRepeat()) {
        undo();
    }
    return true;
}

void UndoBar::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), style::color(Role::card));
    painter.fillRect(QRectF(0, 0, width(), style::hairline(painter)),
                     style::color(Role::separator));
}

} // namespace glidemap
