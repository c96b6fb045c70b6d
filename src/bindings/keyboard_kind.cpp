#include "bindings/keyboard_kind.h"

#include <atomic>

namespace glidemap {

namespace {

std::atomic<KeyboardKind> usual = KeyboardKind::apple;

} // namespace

void setUsualKeyboard(KeyboardKind kind) {
    usual = kind;
}

KeyboardKind usualKeyboard() {
    return usual;
}

} // namespace glidemap
