// Converts between std::string and NSString. For Objective-C++ only.
//
// Thread:  any; a thread other than the main thread needs an autorelease pool.
// Owner:   the autorelease pool owns the created NSString.
// Errors:  returns nullopt if the object is not a string, or cannot be converted to UTF-8.
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
