#include "ui/recorder/modifier_mask.h"

#include "bindings/key_shortcut.h"

namespace glidemap {

std::uint64_t modifierMask(Qt::KeyboardModifiers modifiers) {
    std::uint64_t mask = 0;
    if (modifiers.testFlag(Qt::ShiftModifier)) {
        mask |= modifier::shift;
    }
    if (modifiers.testFlag(Qt::ControlModifier)) {
        mask |= modifier::control;
    }
    if (modifiers.testFlag(Qt::AltModifier)) {
        mask |= modifier::option;
    }
    if (modifiers.testFlag(Qt::MetaModifier)) {
        mask |= modifier::command;
    }
    return mask;
}

} // namespace glidemap
