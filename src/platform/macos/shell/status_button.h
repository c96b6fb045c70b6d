// Sets the image of the program's status item in the menu bar. Qt creates the item with our
// drawing. A system symbol is preferable, because it has the bar's size and weight and an
// accessibility description.
//
// Thread:  the main thread, while the application object exists.
// Errors:  as return values. If the symbol is missing, Qt's image stays.
#pragma once

namespace glidemap {

// Shows the system symbol with this name. Returns false and changes nothing if the system has no
// such symbol or the application has no status item.
bool showSystemSymbol(const char* symbol, const char* description, bool isDimmed);

} // namespace glidemap
