// The option of a control as what it is: which type it has goes by what is drawn or measured.
//
// Errors:  none; the wrong type is undefined.
#pragma once

#include <QStyleOption>

namespace glidemap::style {

template <typename Option>
const Option& as(const QStyleOption* option) {
    return *static_cast<const Option*>(option);
}

} // namespace glidemap::style
