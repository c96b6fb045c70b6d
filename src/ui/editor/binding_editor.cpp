#include "ui/editor/binding_editor.h"

#include <utility>

namespace glidemap {

BindingEditor::BindingEditor(const Services& given, std::optional<GestureBinding> edited,
                             QWidget* parent)
    : QWidget(parent), services(given), existing(std::move(edited)) {}

bool BindingEditor::isValid() const {
    return false;
}

void BindingEditor::save() {}

} // namespace glidemap
