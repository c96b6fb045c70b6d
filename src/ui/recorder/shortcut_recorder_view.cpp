#include "ui/recorder/shortcut_recorder_view.h"

#include <utility>

namespace glidemap {

ShortcutRecorderView::ShortcutRecorderView(const HardwareKeys& hardware, Lang& language,
                                           QWidget* parent)
    : QWidget(parent), keys(hardware), lang(language) {}

ShortcutRecorderView::~ShortcutRecorderView() = default;

void ShortcutRecorderView::setShortcut(std::optional<KeyShortcut> shortcut) {
    recorded = shortcut;
}

void ShortcutRecorderView::startRecording() {
    recording = true;
}

void ShortcutRecorderView::stopRecording() {
    recording = false;
}

} // namespace glidemap
