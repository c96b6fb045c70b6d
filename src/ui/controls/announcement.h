// Makes a screen reader speak a short text, for a change that does not move the focus. Changing the
// accessible name is not enough: screen readers ignore it for some roles, and Qt 6.4 reports the
// change without the new name.
//
// Thread:  the main thread.
// Errors:  none; does nothing while no assistive technology runs.
#pragma once

class QString;
class QWidget;

namespace glidemap {

// `source` may be any widget in the changed window.
void announce(const QWidget& source, const QString& text);

} // namespace glidemap
