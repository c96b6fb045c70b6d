// Converts between std::string and NSString. For Objective-C++ only.
//
// Thread:  any; a thread other than the main thread needs an autorelease pool.
// Owner:   the autorelease pool owns the created NSString.
// Errors:  textOf() returns nullopt for nil, or if the string cannot be converted to UTF-8.
//          stringOf() returns nil if the text is not valid UTF-8.
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
