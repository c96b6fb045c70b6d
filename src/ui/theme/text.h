// Converts texts for widgets: the program uses UTF-8, and Qt uses UTF-16.
//
// Thread:  any.
#pragma once

#include <QString>
#include <string_view>

namespace glidemap {

inline QString toQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace glidemap
