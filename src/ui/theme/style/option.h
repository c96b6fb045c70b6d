// Casts a style option to its actual type. The type is determined by the element that is drawn or
// measured.
//
// Errors:  none; a wrong type is undefined behaviour.
#pragma once

#include <QStyleOption>

namespace glidemap::style {

template <typename Option>
const Option& as(const QStyleOption* option) {
    return *static_cast<const Option*>(option);
}

} // namespace glidemap::style
