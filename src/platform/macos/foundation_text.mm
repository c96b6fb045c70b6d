#include "platform/macos/foundation_text.h"

namespace glidemap {

NSString* stringOf(const std::string& text) {
    NSString* const string = [[NSString alloc] initWithBytes:text.data()
                                                      length:text.size()
                                                    encoding:NSUTF8StringEncoding];
    return [string autorelease];
}

std::optional<std::string> textOf(NSString* string) {
    const char* const text = [string UTF8String];
    return text != nullptr ? std::optional<std::string>(text) : std::nullopt;
}

} // namespace glidemap
