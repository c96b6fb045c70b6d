#include "ui/recorder/modifier_mask.h"

#include "bindings/key_shortcut.h"

#include <QGuiApplication>

namespace glidemap {

std::uint64_t modifierMask(Qt::KeyboardModifiers modifiers, ModifierNames names) {
    const bool plain = names == ModifierNames::plain;
    std::uint64_t mask = 0;
    if (modifiers.testFlag(Qt::ShiftModifier)) {
        mask |= modifier::shift;
    }
    if (modifiers.testFlag(plain ? Qt::ControlModifier : Qt::MetaModifier)) {
        mask |= modifier::control;
    }
    if (modifiers.testFlag(Qt::AltModifier)) {
        mask |= modifier::option;
    }
    if (modifiers.testFlag(plain ? Qt::MetaModifier : Qt::ControlModifier)) {
        mask |= modifier::command;
    }
    return mask;
}

ModifierNames modifierNames() {
    const bool swapped = QGuiApplication::platformName() == QLatin1String("cocoa") &&
                         !QCoreApplication::testAttribute(Qt::AA_MacDontSwapCtrlAndMeta);
    return swapped ? ModifierNames::swapped : ModifierNames::plain;
}

} // namespace glidemap
