// Sets the image of the program's status item in the menu bar. Qt creates the item with our
// drawing. The system's own symbol is better: it has the bar's size and weight, and an
// accessibility description.
//
// Thread:  the main thread, while the application object exists.
// Errors:  as return values; without the symbol Qt's drawing stays.
#pragma once

namespace glidemap {

// Shows the system's symbol of that name. Returns false and changes nothing if the system has no
// such symbol or the application has no status item.
bool showSystemSymbol(const char* symbol, const char* description, bool isDimmed);

} // namespace glidemap
