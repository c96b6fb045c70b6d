#include "ui/recorder/modifier_mask.h"

#include <gtest/gtest.h>

namespace glidemap {

namespace {

struct Row {
    const char* what;
    Qt::KeyboardModifiers held;
    std::uint64_t stored;
};

const Row rows[] = {
    {"none", Qt::NoModifier, 0},
    {"Shift", Qt::ShiftModifier, 0x20000},
    {"what Qt calls Control", Qt::ControlModifier, 0x40000},
    {"Alt", Qt::AltModifier, 0x80000},
    {"what Qt calls Meta", Qt::MetaModifier, 0x100000},
    {"all four", Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier,
     0x1E0000},
    {"a key of the keypad", Qt::KeypadModifier, 0},
    {"another group of the layout", Qt::GroupSwitchModifier, 0},
    {"Shift with a key of the keypad", Qt::ShiftModifier | Qt::KeypadModifier, 0x20000},
};

TEST(ModifierMaskTest, ContainsOnlyTheFourModifiers) {
    for (const Row& row : rows) {
        EXPECT_EQ(modifierMask(row.held), row.stored) << row.what;
    }
}

} // namespace

} // namespace glidemap
