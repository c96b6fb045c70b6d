// Texts between the program's words and the system's. For Objective-C++ only.
//
// Thread:  any; one that is not the main thread has a pool of its own around it.
// Owner:   the text that is made belongs to the pool.
// Errors:  as answers: what is no text, or cannot be said in UTF-8, is absent.
#pragma once

#ifdef __OBJC__

#import <Foundation/Foundation.h>

#include <optional>
#include <string>

namespace glidemap {

NSString* stringOf(const std::string& text);

std::optional<std::string> textOf(NSString* string);

} // namespace glidemap

#endif
