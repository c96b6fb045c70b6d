#include "ui/recorder/shortcut_recorder_view.h"

#include "ui/controls/styled_label.h"
#include "ui/theme/style/paint.h"
#include "ui/theme/text.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPushButton>
#include <QStyleOptionButton>
#include <utility>

namespace glidemap {

namespace {

constexpr std::uint16_t escape = 53;

// Those that a press has beside the keys that are held: Caps Lock's, and what kind of key it is.
constexpr std::uint64_t storedModifiers =
    modifier::shift | modifier::control | modifier::option | modifier::command;

} // namespace

ShortcutRecorderView::ShortcutRecorderView(std::shared_ptr<KeyPresses> keyPresses, Lang& language,
                                           QWidget* parent)
    : QWidget(parent), keys(std::move(keyPresses)), lang(language),
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
    toLanguage = lang.changes().subscribe({}, [this] { retitle(); });
    makeButtonWideEnough();
    retitle();
}

ShortcutRecorderView::~ShortcutRecorderView() {
    letGo();
}

void ShortcutRecorderView::setShortcut(std::optional<KeyShortcut> shortcut) {
    recorded = shortcut;
    retitle();
}

void ShortcutRecorderView::startRecording() {
    recording = true;
    refusedKey = false;
    mayHoldKeys = true;
    keys->start([this](const KeyPresses::Press& press) { take(press); });
    retitle();
}

void ShortcutRecorderView::stopRecording() {
    if (std::exchange(recording, false)) {
        keys->stop();
    }
    retitle();
}

// Nothing of it may outlive the editor, not even the rest of a press.
void ShortcutRecorderView::letGo() {
    recording = false;
    if (std::exchange(mayHoldKeys, false)) {
        keys->abandon();
    }
}

void ShortcutRecorderView::take(const KeyPresses::Press& press) {
    if (!press.keyCode) {
        refusedKey = true;
        retitle();
        return;
    }
    // With Caps Lock on, Escape is not alone.
    if (*press.keyCode == escape && press.flags == 0) {
        stopRecording();
        return;
    }
    record({.keyCode = *press.keyCode, .modifiers = press.flags & storedModifiers});
}

void ShortcutRecorderView::record(const KeyShortcut& shortcut) {
    recorded = shortcut;
    stopRecording();
    if (onRecord) {
        onRecord(shortcut);
    }
}

void ShortcutRecorderView::hideEvent(QHideEvent* event) {
    letGo();
    retitle();
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
    if (recording && refusedKey) {
        return toQt(lang.choose("This key cannot be used (⎋ to cancel)", "无法使用此键（⎋ 取消）"));
    }
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
