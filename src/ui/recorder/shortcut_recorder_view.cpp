#include "ui/recorder/shortcut_recorder_view.h"

#include "ui/controls/styled_label.h"
#include "ui/recorder/modifier_mask.h"
#include "ui/theme/style/paint.h"
#include "ui/theme/text.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QStyleOptionButton>
#include <utility>

namespace glidemap {

namespace {

constexpr std::uint16_t escape = 53;

// The places of Shift, Control, Option, Command, Caps Lock and Fn on both sides of the keyboard.
constexpr std::uint16_t firstModifierKey = 54;
constexpr std::uint16_t lastModifierKey = 63;

// A layout may have made a modifier of any other key.
bool actsAsModifier(int key) {
    switch (key) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Meta:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
    case Qt::Key_Hyper_L:
    case Qt::Key_Hyper_R:
    case Qt::Key_CapsLock:
    case Qt::Key_Mode_switch:
        return true;
    default:
        return false;
    }
}

bool isModifierKey(std::uint16_t keyCode, int key) {
    return (keyCode >= firstModifierKey && keyCode <= lastModifierKey) || actsAsModifier(key);
}

} // namespace

ShortcutRecorderView::ShortcutRecorderView(const HardwareKeys& hardware, Lang& language,
                                           QWidget* parent)
    : QWidget(parent), keys(hardware), lang(language),
      label(new StyledLabel(TextStyle::body, Role::primary)), button(new QPushButton) {
    setObjectName("shortcutRecorder");
    button->setObjectName("recordShortcut");
    button->setAutoDefault(false);
    label->setBuddy(button);
    auto* row = new QHBoxLayout(this);
    // The ring of the focus lies outside of the button's shape, and has its place here.
    row->setContentsMargins(0, style::ringMargin, style::ringMargin, style::ringMargin);
    row->addWidget(label);
    row->addStretch();
    row->addWidget(button);
    setFocusProxy(button);

    connect(button, &QPushButton::clicked, this,
            [this] { recording ? stopRecording() : startRecording(); });
    monitor.onPress = [this](const QKeyEvent& event) {
        press(event);
    };
    toLanguage = lang.changes().subscribe({}, [this] { retitle(); });
    makeButtonWideEnough();
    retitle();
}

ShortcutRecorderView::~ShortcutRecorderView() = default;

void ShortcutRecorderView::setShortcut(std::optional<KeyShortcut> shortcut) {
    recorded = shortcut;
    retitle();
}

void ShortcutRecorderView::startRecording() {
    recording = true;
    monitor.start();
    retitle();
}

void ShortcutRecorderView::stopRecording() {
    recording = false;
    monitor.stop();
    retitle();
}

void ShortcutRecorderView::press(const QKeyEvent& event) {
    const HardwareKeys::NativeKey native{.scanCode = event.nativeScanCode(),
                                         .virtualKey = event.nativeVirtualKey(),
                                         .modifiers = event.nativeModifiers()};
    const std::optional<std::uint16_t> keyCode = keys.virtualKeyCode(native);
    if (!keyCode || isModifierKey(*keyCode, event.key())) {
        return;
    }
    const std::uint64_t modifiers = modifierMask(event.modifiers(), modifierNames());
    // With Caps Lock on, Escape is not alone.
    if (*keyCode == escape && modifiers == 0 && !keys.capsLock(native)) {
        stopRecording();
        return;
    }
    record({.keyCode = *keyCode, .modifiers = modifiers});
}

void ShortcutRecorderView::record(const KeyShortcut& shortcut) {
    recorded = shortcut;
    stopRecording();
    if (onRecord) {
        onRecord(shortcut);
    }
}

// Nothing of it may outlive the editor, not even the rest of a press.
void ShortcutRecorderView::hideEvent(QHideEvent* event) {
    stopRecording();
    monitor.remove();
    QWidget::hideEvent(event);
}

void ShortcutRecorderView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::EnabledChange && !isEnabled()) {
        stopRecording();
    }
    if (event->type() == QEvent::StyleChange || event->type() == QEvent::FontChange) {
        makeButtonWideEnough();
    }
    QWidget::changeEvent(event);
}

void ShortcutRecorderView::makeButtonWideEnough() {
    QStyleOptionButton option;
    option.initFrom(button);
    const QSize labelSize(smallestLabel, button->fontMetrics().height());
    button->setMinimumWidth(
        button->style()
            ->sizeFromContents(QStyle::CT_PushButton, &option, labelSize, button)
            .width());
}

QString ShortcutRecorderView::buttonText() const {
    if (recording) {
        return toQt(lang.choose("Press a shortcut… (⎋ to cancel)", "请按下快捷键…（⎋ 取消）"));
    }
    return toQt(recorded ? recorded->displayString() : lang.choose("Click to record", "点击录制"));
}

void ShortcutRecorderView::retitle() {
    label->setText(toQt(lang.choose("Shortcut", "快捷键")));
    const QString text = buttonText();
    button->setText(QString(text).replace('&', "&&")); // no mnemonic
    button->setAccessibleName(text);
}

} // namespace glidemap
