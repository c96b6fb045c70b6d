#import <Foundation/Foundation.h>

#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

// A text that is created at run time.
@interface DoubleOfString : NSString {
    char* bytes;
    NSUInteger size;
}
- (id)initWithText:(const std::string&)text;
@end

@implementation DoubleOfString
- (id)initWithText:(const std::string&)text {
    bytes = static_cast<char*>(std::malloc(text.size() + 1));
    std::memcpy(bytes, text.c_str(), text.size() + 1);
    size = text.size();
    return self;
}
- (void)dealloc {
    std::free(bytes);
    [super dealloc];
}
- (const char*)UTF8String {
    return bytes;
}
- (NSUInteger)length {
    return size;
}
@end

namespace {

// Detects only the invalid text that the tests use: text with the byte 0xFF.
bool isUTF8(const std::string& text) {
    return text.find('\xff') == std::string::npos;
}

bool standsInURL(char character) {
    const auto byte = static_cast<unsigned char>(character);
    return byte > 0x20 && byte < 0x7f && std::strchr("\"<>\\^`{|}", character) == nullptr;
}

std::string percentEncoded(const std::string& path) {
    constexpr const char* digits = "0123456789ABCDEF";
    std::string encoded;
    for (const char character : path) {
        const auto byte = static_cast<unsigned char>(character);
        if (standsInURL(character) && std::strchr("%?#", character) == nullptr) {
            encoded += character;
        } else {
            encoded += {'%', digits[byte >> 4], digits[byte & 0xf]};
        }
    }
    return encoded;
}

NSString* stringOf(const std::string& text) {
    return [[[DoubleOfString alloc] initWithText:text] autorelease];
}

} // namespace

@implementation NSObject (DoubleOfTheProtocol)
- (Class)class {
    return object_getClass(self);
}
- (BOOL)isKindOfClass:(Class)aClass {
    for (Class one = object_getClass(self); one != Nil; one = class_getSuperclass(one)) {
        if (one == aClass) {
            return YES;
        }
    }
    return NO;
}
- (BOOL)isEqual:(id)object {
    return self == object;
}
@end

@implementation NSString (DoubleOfTexts)
+ (instancetype)stringWithUTF8String:(const char*)text {
    return isUTF8(text) ? stringOf(text) : nil;
}
- (instancetype)initWithBytes:(const void*)data
                       length:(NSUInteger)len
                     encoding:(NSStringEncoding)encoding {
    [self release]; // the initializer returns an object of another class
    const std::string text(static_cast<const char*>(data), len);
    if (encoding != NSUTF8StringEncoding || !isUTF8(text)) {
        return nil;
    }
    return static_cast<NSString*>([[DoubleOfString alloc] initWithText:text]);
}
- (BOOL)isEqualToString:(NSString*)aString {
    return std::strcmp([self UTF8String], [aString UTF8String]) == 0;
}
- (BOOL)isEqual:(id)object {
    return [object isKindOfClass:[NSString class]] && [self isEqualToString:object];
}
@end

@implementation NSArray
+ (instancetype)array {
    const id none = nil;
    return [self arrayWithObjects:&none count:0];
}
+ (instancetype)arrayWithObjects:(id)firstObj, ... {
    std::vector<id> all;
    va_list more;
    va_start(more, firstObj);
    for (id one = firstObj; one != nil; one = va_arg(more, id)) {
        all.push_back(one);
    }
    va_end(more);
    return [self arrayWithObjects:all.data() count:all.size()];
}
+ (instancetype)arrayWithObjects:(const id*)given count:(NSUInteger)cnt {
    NSArray* made = [[[self alloc] init] autorelease];
    made->objects = static_cast<id*>(std::calloc(cnt + 1, sizeof(id)));
    made->size = cnt;
    for (NSUInteger index = 0; index < cnt; ++index) {
        made->objects[index] = [given[index] retain];
    }
    return made;
}
- (void)dealloc {
    for (NSUInteger index = 0; index < size; ++index) {
        [objects[index] release];
    }
    std::free(objects);
    [super dealloc];
}
- (NSUInteger)count {
    return size;
}
- (id)objectAtIndex:(NSUInteger)index {
    return objects[index];
}
- (id)firstObject {
    return size == 0 ? nil : objects[0];
}
- (NSUInteger)countByEnumeratingWithState:(NSFastEnumerationState*)state
                                  objects:(id*)buffer
                                    count:(NSUInteger)len {
    (void)buffer;
    (void)len;
    if (state->state != 0) {
        return 0;
    }
    state->state = 1;
    state->itemsPtr = objects;
    state->mutationsPtr = &size;
    return size;
}
@end

@implementation NSDictionary
+ (instancetype)dictionary {
    return [[[self alloc] init] autorelease];
}
+ (instancetype)dictionaryWithObject:(id)object forKey:(id)key {
    NSDictionary* made = [self dictionary];
    made->onlyKey = [key retain];
    made->onlyObject = [object retain];
    return made;
}
- (void)dealloc {
    [onlyKey release];
    [onlyObject release];
    [super dealloc];
}
- (id)objectForKey:(id)aKey {
    return [onlyKey isEqual:aKey] ? onlyObject : nil;
}
@end

@implementation NSURL
+ (instancetype)URLWithString:(NSString*)URLString {
    const std::string given = [URLString UTF8String];
    if (given.find('[') != std::string::npos && given.find(']') == std::string::npos) {
        return nil; // the bracketed address is not closed
    }
    NSURL* made = [[[self alloc] init] autorelease];
    made->text = [URLString retain];
    return made;
}
+ (NSURL*)fileURLWithPath:(NSString*)path isDirectory:(BOOL)isDir {
    const std::string given = [path UTF8String];
    const std::string end = isDir ? "/" : "";
    NSURL* made = [self URLWithString:stringOf("file://" + percentEncoded(given) + end)];
    made->filePath = strdup(given.c_str());
    return made;
}
- (void)dealloc {
    [text release];
    std::free(filePath);
    [super dealloc];
}
- (NSString*)absoluteString {
    return text;
}
- (const char*)fileSystemRepresentation {
    return filePath;
}
@end

NSErrorUserInfoKey const NSLocalizedDescriptionKey = @"NSLocalizedDescription";

@implementation NSError
+ (instancetype)errorWithDomain:(NSErrorDomain)domain
                           code:(NSInteger)code
                       userInfo:(NSDictionary*)dict {
    (void)domain;
    (void)code;
    NSError* made = [[[self alloc] init] autorelease];
    made->info = [dict retain];
    return made;
}
- (void)dealloc {
    [info release];
    [super dealloc];
}
- (NSString*)localizedDescription {
    return [info objectForKey:NSLocalizedDescriptionKey];
}
@end
