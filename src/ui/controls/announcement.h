// Speaks a short text to a person with a screen reader, for a change that no focus change shows.
// Screen readers do not read a changed name of every role, and Qt 6.4 reports such a change without
// the name.
//
// Thread:  the main thread.
// Errors:  none; does nothing while no assistive technology runs.
#pragma once

class QString;
class QWidget;

namespace glidemap {

// `source` is any widget of the window with the change.
void announce(const QWidget& source, const QString& text);

} // namespace glidemap
