#include "ui/recorder/shortcut_recorder_view.h"

#include "bindings/spoken_shortcut.h"
#include "ui/controls/announcement.h"
#include "ui/controls/popover.h"
#include "ui/controls/styled_label.h"
#include "ui/controls/symbol_button.h"
#include "ui/recorder/shortcut_chooser.h"
#include "ui/theme/style/paint.h"
#include "ui/theme/text.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPushButton>
#include <QStyleOptionButton>
#include <algorithm>
#include <utility>

namespace glidemap {

namespace {

constexpr std::uint16_t escape = 53;

// The modifier flags of a key press that are stored in a shortcut. Caps Lock and flags that depend
// on the key are not among them.
constexpr std::uint64_t storedModifiers =
    modifier::shift | modifier::control | modifier::option | modifier::command;

} // namespace

ShortcutRecorderView::ShortcutRecorderView(std::shared_ptr<KeyPresses> keys, Lang& lang,
                                           QWidget* parent)
    : QWidget(parent), keys(std::move(keys)), lang(lang),
      label(new StyledLabel(TextStyle::body, Role::primary)), button(new QPushButton),
      chooseButton(new SymbolButton("keyboard", Role::secondary)) {
    setObjectName("shortcutRecorder");
    button->setObjectName("recordShortcut");
    button->setAutoDefault(false);
    chooseButton->setObjectName("chooseShortcut");
    label->setBuddy(button);
    auto* row = new QHBoxLayout(this);
    // The focus ring lies outside the button's shape, within this margin.
    row->setContentsMargins(0, style::ringMargin, style::ringMargin, style::ringMargin);
    row->addWidget(label);
    row->addStretch();
    row->addWidget(button);
    row->addWidget(chooseButton);
    setFocusProxy(button);

    connect(button, &QPushButton::clicked, this,
            [this] { recording ? stopRecording() : startRecording(); });
    captureLimit.setSingleShot(true);
    captureLimit.setInterval(maxCaptureTime);
    connect(&captureLimit, &QTimer::timeout, this, [this] { updateDesktopKeyCapture(); });
    connect(chooseButton, &QToolButton::clicked, this, [this] { toggleChooser(); });
    toLanguage = lang.changes().subscribe({}, [this] { retitle(); });
    retitle();
}

ShortcutRecorderView::~ShortcutRecorderView() {
    releaseKeys();
    closeChooser();
}

void ShortcutRecorderView::setShortcut(std::optional<KeyShortcut> shortcut) {
    recorded = shortcut;
    retitle();
}

void ShortcutRecorderView::startRecording() {
    recording = true;
    refusedKey = false;
    mayHaveCaptured = true;
    held = 0;
    keys->onModifiers = [this](std::uint64_t modifiers) {
        showHeld(modifiers);
    };
    keys->onDone = [this] {
        updateDesktopKeyCapture();
    };
    keys->start([this](const KeyPresses::Press& press) { take(press); });
    captureLimit.start();
    updateDesktopKeyCapture();
    retitle();
    announceState();
}

void ShortcutRecorderView::announceState() const {
    announce(*this, button->accessibleName());
}

void ShortcutRecorderView::showHeld(std::uint64_t modifiers) {
    if (recording && std::exchange(held, modifiers) != modifiers) {
        button->setText(buttonText());
    }
}

void ShortcutRecorderView::stopRecording() {
    if (std::exchange(recording, false)) {
        keys->stop();
        updateDesktopKeyCapture();
    }
    retitle();
}

// While recording in the active window, captures the keys that the desktop reserves for itself. In
// other windows, these keys work normally. After a recording, capturing continues until all
// captured keys are released: the auto-repeats of a recorded Alt+F4 would otherwise close the
// window.
void ShortcutRecorderView::updateDesktopKeyCapture() {
    if (!recording && !isActiveWindow()) {
        captureLimit.stop(); // another window may receive the releases
    }
    const bool mayCapture =
        (recording || keys->holdsKeys()) && captureLimit.isActive() && isActiveWindow();
    keys->captureDesktopKeys(mayCapture ? window()->windowHandle() : nullptr);
}

// After the editor has closed, nothing may be captured any more, not even the release of a captured
// key.
void ShortcutRecorderView::releaseKeys() {
    recording = false;
    if (std::exchange(mayHaveCaptured, false)) {
        keys->onModifiers = {};
        keys->onDone = {};
        keys->captureDesktopKeys(nullptr);
        keys->abandon();
    }
}

void ShortcutRecorderView::take(const KeyPresses::Press& press) {
    if (!press.keyCode) {
        refusedKey = true;
        retitle();
        announceState();
        return;
    }
    // Caps Lock is one of the flags, so Escape cancels only while Caps Lock is off.
    if (*press.keyCode == escape && press.flags == 0) {
        stopRecording();
        return;
    }
    record({.keyCode = *press.keyCode, .modifiers = press.flags & storedModifiers});
}

void ShortcutRecorderView::record(const KeyShortcut& shortcut) {
    recorded = shortcut;
    stopRecording();
    announceState();
    if (onRecord) {
        onRecord(shortcut);
    }
}

// A second click on the button closes the popover.
void ShortcutRecorderView::toggleChooser() {
    if (!chooser.isNull()) {
        closeChooser();
        return;
    }
    stopRecording();
    auto* content = new ShortcutChooser(recorded, lang);
    content->onChange = [this](const KeyShortcut& shortcut) {
        record(shortcut);
    };
    content->onDone = [this] {
        closeChooser();
    };
    chooser = new Popover(chooseButton, content);
    chooser->setAccessibleName(chooseButton->accessibleName());
    chooser->onClosed = [this] {
        chooser = nullptr;
    };
    content->setFocus(Qt::PopupFocusReason);
}

void ShortcutRecorderView::closeChooser() {
    if (!chooser.isNull()) {
        chooser->dismiss();
    }
}

bool ShortcutRecorderView::event(QEvent* event) {
    const bool isSeen = QWidget::event(event);
    if (event->type() == QEvent::WindowActivate || event->type() == QEvent::WindowDeactivate) {
        updateDesktopKeyCapture();
    }
    return isSeen;
}

void ShortcutRecorderView::hideEvent(QHideEvent* event) {
    releaseKeys();
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

// Makes the button wide enough for all of its texts, so that its width stays the same when
// recording starts and ends.
void ShortcutRecorderView::makeButtonWideEnough() {
    const QFontMetrics letters = button->fontMetrics();
    int widest = smallestLabel;
    for (const QString& text : {recordingText(), refusal(), invitation(), recordedText()}) {
        widest = std::max(widest, letters.size(Qt::TextShowMnemonic, text).width());
    }
    QStyleOptionButton option;
    option.initFrom(button);
    option.text = button->text(); // with an empty text, the style would measure an icon button
    button->setFixedWidth(
        button->style()
            ->sizeFromContents(QStyle::CT_PushButton, &option, {widest, letters.height()}, button)
            .width());
}

QString ShortcutRecorderView::recordingText() const {
    return toQt(lang.choose("Press a shortcut… (⎋ to cancel)", "请按下快捷键…（⎋ 取消）"));
}

QString ShortcutRecorderView::refusal() const {
    return toQt(lang.choose("This key cannot be used (⎋ to cancel)", "无法使用此键（⎋ 取消）"));
}

QString ShortcutRecorderView::invitation() const {
    return toQt(lang.choose("Click to record", "点击录制"));
}

QString ShortcutRecorderView::recordedText() const {
    return recorded ? toQt(recorded->displayString()) : QString();
}

QString ShortcutRecorderView::buttonText() const {
    if (recording && refusedKey) {
        return refusal();
    }
    if (recording) {
        return held == 0 ? recordingText() : toQt(modifierSymbols(held) + "…");
    }
    return recorded ? recordedText() : invitation();
}

void ShortcutRecorderView::retitle() {
    label->setText(toQt(lang.choose("Shortcut", "快捷键")));
    const QString text = buttonText();
    button->setText(QString(text).replace('&', "&&")); // a single & would mark a mnemonic
    const bool showsShortcut = recorded && !recording;
    button->setAccessibleName(showsShortcut ? toQt(spokenShortcut(*recorded, lang)) : text);
    button->setToolTip(showsShortcut ? toQt(writtenShortcut(*recorded)) : QString());
    const QString choose = toQt(lang.choose("Choose the keys from a list", "从列表中选择按键"));
    chooseButton->setAccessibleName(choose);
    chooseButton->setToolTip(choose);
    button->setProperty("recording", recording);
    makeButtonWideEnough();
}

} // namespace glidemap
