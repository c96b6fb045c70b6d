#include "ui/editor/scope_kind.h"

namespace glidemap {

std::string_view rawValue(ScopeKind kind) {
    return kind == ScopeKind::global ? "global" : "app";
}

std::string label(ScopeKind kind, const Lang& lang) {
    return kind == ScopeKind::global ? lang.choose("Global", "全局")
                                     : lang.choose("Specific App", "指定 App");
}

} // namespace glidemap
