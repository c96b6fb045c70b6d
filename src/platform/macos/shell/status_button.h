// The button of the program's status item in the menu bar. The toolkit made the item and its drawing; the system's own symbol is
// better there: it has the bar's size and weight, and a description for assistive programs.
//
// Thread:  the main thread, within the application object's life.
// Errors:  values; a system without the symbol leaves the toolkit's drawing in place.
#pragma once

namespace glidemap {

// Shows the system's symbol of that name in the button. Returns false, and changes nothing, if the system has no such symbol or
// the item cannot be found among the application's windows.
bool showSystemSymbol(const char* symbol, const char* description, bool isDimmed);

} // namespace glidemap
