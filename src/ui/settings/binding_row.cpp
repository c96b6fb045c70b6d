#include "ui/settings/binding_row.h"

#include "bindings/spoken_shortcut.h"
#include "ui/controls/badge.h"
#include "ui/controls/dimmed.h"
#include "ui/controls/elided_label.h"
#include "ui/controls/symbol_button.h"
#include "ui/controls/symbol_label.h"
#include "ui/settings/gesture_preview.h"
#include "ui/theme/style/check_box.h"
#include "ui/theme/style/paint.h"
#include "ui/theme/text.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QStyleOption>
#include <QtMath>
#include <algorithm>
#include <iterator>
#include <utility>
#include <variant>

namespace glidemap {

namespace {

constexpr int spacing = 12;
constexpr int verticalPadding = 4;
constexpr int horizontalPadding = 6;
constexpr int ringRoom = 4; // the margin for a control's focus ring
constexpr int lineSpacing = 2;
constexpr int symbolColumn = 22;
constexpr int arrowSize = 11;
// The maximum width of the badge in points. In a wide row, maxBadgesShare allows a wider badge.
constexpr int maxBadgeWidth = 200;
constexpr double maxBadgesShare = 0.28; // the maximum share of the row's width
constexpr double cornerRadius = 7;

// The ratio of line height to font size in the tallest font, a Chinese one. Rows have the same
// height in all scripts, so they are as high as this font needs. The ratio is a constant, because
// measuring a Chinese font would load it.
constexpr double maxLineHeight = 1.45;

int lineHeight(TextStyle style) {
    const QFont font = Theme::shared().font(style);
    return std::max(QFontMetrics(font).height(), qCeil(maxLineHeight * font.pixelSize()));
}

bool isReturn(const QEvent& event) {
    if (event.type() != QEvent::KeyPress) {
        return false;
    }
    const int key = static_cast<const QKeyEvent&>(event).key();
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

bool movesSelection(const QEvent& event) {
    if (event.type() != QEvent::KeyPress) {
        return false;
    }
    const int key = static_cast<const QKeyEvent&>(event).key();
    return key == Qt::Key_Up || key == Qt::Key_Down;
}

// Describes a shortcut in words, because screen readers cannot read key symbols.
std::string spoken(const BindingAction& action, const Lang& lang) {
    const auto* const shortcut = std::get_if<KeyShortcut>(&action);
    return shortcut == nullptr
               ? displayString(action, lang)
               : lang.choose("Shortcut ", "快捷键 ") + spokenShortcut(*shortcut, lang);
}

} // namespace

int BindingRow::usualHeight() {
    return lineHeight(TextStyle::bodyMedium) + lineSpacing + lineHeight(TextStyle::body) +
           2 * verticalPadding;
}

BindingRow::BindingRow(GestureBinding shown, Callbacks callbacks, const Lang& lang, QWidget* parent)
    : QWidget(parent), shown(std::move(shown)), callbacks(std::move(callbacks)), lang(lang),
      content(new QWidget(this)) {
    setObjectName("bindingRow");
    setAttribute(Qt::WA_Hover);
    auto* whole = new QHBoxLayout(this);
    whole->setContentsMargins(horizontalPadding, verticalPadding, horizontalPadding,
                              verticalPadding);
    whole->addWidget(content);
    auto* layout = new QHBoxLayout(content);
    layout->setContentsMargins(ringRoom, 0, ringRoom, 0);
    layout->setSpacing(spacing);
    makeSwitch(*layout);
    makeTexts(*layout);
    makeButtons(*layout);
    for (QAbstractButton* control : controls()) {
        control->installEventFilter(this);
        // The controls are not tab stops: the arrow keys reach them, and Tab leaves the list.
        control->setFocusPolicy(Qt::ClickFocus);
    }
    showEmphasis();
    retitle();
}

BindingRow::~BindingRow() {
    closePreview();
}

void BindingRow::makeSwitch(QHBoxLayout& layout) {
    enabled = new QCheckBox(content);
    enabled->setObjectName("enabled");
    // The check box keeps its state until the binding has been changed and the list updates this
    // row.
    connect(enabled, &QCheckBox::toggled, this, [this](bool on) {
        if (on != shown.enabled) {
            enabled->setChecked(shown.enabled);
            callbacks.onToggle(on);
        }
    });
    layout.addWidget(enabled);
    preview = new SymbolButton(symbolName(shown.gesture), Role::accent, content);
    preview->setObjectName("preview");
    preview->setFixedWidth(symbolColumn);
    preview->showGround();
    connect(preview, &QToolButton::clicked, this, [this] { togglePreview(); });
    layout.addWidget(preview);
}

void BindingRow::makeTexts(QHBoxLayout& layout) {
    gestureName = new ElidedLabel(TextStyle::bodyMedium, Role::primary, content);
    gestureName->setObjectName("gestureName");
    actionText = new ElidedLabel(TextStyle::body, Role::secondary, content);
    actionText->setObjectName("actionText");
    auto* action = new QHBoxLayout;
    action->setSpacing(5);
    action->addWidget(new SymbolLabel("arrow.right", Role::secondary, arrowSize, content));
    action->addWidget(actionText, 1);
    auto* column = new QVBoxLayout;
    column->setSpacing(lineSpacing);
    column->addWidget(gestureName);
    column->addLayout(action);
    layout.addLayout(column, 1);
    scopeBadge = new Badge(content);
    scopeBadge->setObjectName("scopeBadge");
    layout.addWidget(scopeBadge);
}

void BindingRow::makeButtons(QHBoxLayout& layout) {
    edit = new SymbolButton("pencil", Role::primary, content);
    edit->setObjectName("edit");
    connect(edit, &QToolButton::clicked, this, [this] { callbacks.onEdit(); });
    layout.addWidget(edit);
    remove = new SymbolButton("trash", Role::red, content);
    remove->setObjectName("delete");
    connect(remove, &QToolButton::clicked, this, [this] { callbacks.onDelete(); });
    layout.addWidget(remove);
}

std::array<QAbstractButton*, 4> BindingRow::controls() const {
    return {enabled, preview, edit, remove};
}

void BindingRow::setBinding(GestureBinding binding) {
    if (binding == shown) {
        return;
    }
    shown = std::move(binding);
    preview->setSymbol(symbolName(shown.gesture));
    retitle();
}

void BindingRow::retitle() {
    enabled->setChecked(shown.enabled);
    gestureName->setText(toQt(displayName(shown.gesture, lang)));
    actionText->setText(toQt(displayString(shown.action, lang)));
    const auto* const shortcut = std::get_if<KeyShortcut>(&shown.action);
    actionText->setToolTip(shortcut != nullptr ? toQt(writtenShortcut(*shortcut)) : QString());
    scopeBadge->setText(toQt(displayString(shown.scope, lang)));
    const bool isGlobal = std::holds_alternative<GlobalScope>(shown.scope);
    scopeBadge->setColor(isGlobal ? Role::blue : Role::purple);
    // The row is dimmed but not disabled, so that the controls stay usable.
    setDimmed(content, !shown.enabled || isMuted);
    updateAccessibleNames();
    if (showsPreview()) {
        previewed->setGesture(shown.gesture, lang);
        popover->setAccessibleName(gestureName->text());
    }
}

QString BindingRow::spokenName(const GestureBinding& binding, const Lang& lang) {
    const std::string comma = lang.choose(", ", "，");
    std::string name = displayName(binding.gesture, lang) + comma + spoken(binding.action, lang) +
                       comma + displayString(binding.scope, lang);
    if (!binding.enabled) {
        name += comma + lang.choose("off", "已关闭");
    }
    return toQt(name);
}

// Every row has the same controls, so their accessible names include the gesture's name.
void BindingRow::updateAccessibleNames() {
    const std::string gesture = displayName(shown.gesture, lang);
    const auto name = [&](const char* english, const char* chinese) {
        return toQt(lang.choose(english + (" " + gesture), chinese + ("「" + gesture + "」")));
    };
    const auto help = [&](QWidget* control, const char* english, const char* chinese) {
        control->setToolTip(toQt(lang.choose(english, chinese)));
    };
    enabled->setAccessibleName(name("Enable", "启用"));
    help(preview, "Show gesture demo", "查看手势演示");
    preview->setAccessibleName(name("Show gesture demo:", "查看手势演示："));
    help(edit, "Edit", "编辑");
    edit->setAccessibleName(name("Edit", "编辑"));
    help(remove, "Delete", "删除");
    remove->setAccessibleName(name("Delete", "删除"));
    setAccessibleName(spokenName(shown, lang));
    explain();
}

void BindingRow::setMuted(bool now) {
    isMuted = now;
    setDimmed(content, !shown.enabled || isMuted);
}

void BindingRow::setShadowed(bool never) {
    if (std::exchange(isShadowed, never) != never) {
        explain();
    }
}

void BindingRow::explain() {
    const QString reason =
        isShadowed ? toQt(lang.choose("Never runs: a binding above it has the same gesture and "
                                      "scope and takes precedence.",
                                      "不会执行：上方已有手势和生效范围相同的绑定，将优先执行。"))
                   : QString();
    setToolTip(reason);
    setAccessibleDescription(reason);
}

void BindingRow::togglePreview() {
    if (showsPreview()) {
        closePreview();
        return;
    }
    previewed = new GesturePreview(shown.gesture, lang);
    popover = new Popover(preview, previewed);
    popover->setObjectName("gesturePreview");
    popover->setAccessibleName(gestureName->text());
    popover->onClosed = [this] {
        popover.clear();
    };
}

void BindingRow::closePreview() {
    if (showsPreview()) {
        popover->dismiss();
    }
}

void BindingRow::setSelection(Selection now) {
    if (std::exchange(selection, now) != now) {
        showEmphasis();
        update();
    }
}

// Draws the edit and delete buttons paler, unless the row is selected or under the pointer.
void BindingRow::showEmphasis() {
    const bool isQuiet = !isSelected() && !underMouse();
    edit->setFaint(isQuiet);
    remove->setFaint(isQuiet);
}

void BindingRow::enter() {
    enabled->setFocus(Qt::TabFocusReason);
}

// Handles the Left and Right keys, which move the focus to the neighbouring control, or from the
// first control back to the list. Returns false for other keys.
bool BindingRow::movesFocus(int key, QAbstractButton* from) {
    if (key != Qt::Key_Left && key != Qt::Key_Right) {
        return false;
    }
    const auto order = controls();
    const auto place = std::ranges::find(order, from);
    const bool isForward = (key == Qt::Key_Right) == (layoutDirection() == Qt::LeftToRight);
    if (isForward && std::next(place) != order.end()) {
        (*std::next(place))->setFocus(Qt::TabFocusReason);
    } else if (!isForward && place != order.begin()) {
        (*std::prev(place))->setFocus(Qt::BacktabFocusReason);
    } else if (!isForward && onLeave) {
        onLeave();
    }
    return true;
}

// The Return key clicks the focused button, but on the check box this key is left to the list. Up
// and Down are left to the list on every control, because they move the selection.
bool BindingRow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn && onFocusInside) {
        onFocusInside(static_cast<QFocusEvent*>(event)->reason());
    }
    auto* control = static_cast<QAbstractButton*>(watched);
    // The first click of a double click may have deleted another row at this place. The second
    // click must not delete this row, too.
    if (event->type() == QEvent::MouseButtonDblClick && control == remove) {
        return true;
    }
    if (isReturn(*event) && control != enabled) {
        control->click();
        return true;
    }
    if (event->type() == QEvent::KeyPress &&
        movesFocus(static_cast<QKeyEvent*>(event)->key(), control)) {
        return true;
    }
    if (movesSelection(*event)) {
        event->ignore();
        return true;
    }
    return false;
}

bool BindingRow::event(QEvent* event) {
    if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverLeave) {
        showEmphasis();
        update();
    }
    return QWidget::event(event);
}

void BindingRow::resizeEvent(QResizeEvent* event) {
    scopeBadge->setMaximumWidth(std::max(maxBadgeWidth, qRound(width() * maxBadgesShare)));
    QWidget::resizeEvent(event);
}

// In a dimmed row, the control's own focus ring is drawn at half opacity. A second ring below it
// restores the full strength.
void BindingRow::drawFocusOfDimmed(QPainter& painter) const {
    const auto order = controls();
    const auto focused = std::ranges::find_if(order, &QWidget::hasFocus);
    if (!isDimmed(content) || focused == order.end() ||
        !window()->testAttribute(Qt::WA_KeyboardFocusChange)) {
        return;
    }
    QStyleOption option;
    option.initFrom(*focused);
    option.rect.moveTopLeft((*focused)->mapTo(this, QPoint()));
    if (*focused == enabled) {
        const QRectF box = style::snapped(painter, style::indicatorRect(option));
        style::drawFocusRing(painter, box, style::boxRadius);
    } else {
        style::strokeRounded(painter, style::snapped(painter, option.rect), style::controlRadius, 2,
                             style::color(Role::accent));
    }
}

void BindingRow::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    if (isSelected() || underMouse()) {
        const Theme& theme = Theme::shared();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(selection == Selection::selectedWithFocus
                           ? QPen(theme.color(Role::accent), 2)
                           : QPen(Qt::NoPen));
        painter.setBrush(theme.color(isSelected() ? Role::selection : Role::hover));
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), cornerRadius, cornerRadius);
    }
    drawFocusOfDimmed(painter);
}

} // namespace glidemap
