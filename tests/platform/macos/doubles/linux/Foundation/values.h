// Declares texts, collections, URLs and errors, and the locations of the program and of the user's
// files.
#pragma once

#include <Foundation/Foundation.h>
#include <Foundation/NSObjCRuntime.h>

#ifdef __OBJC__

NS_ASSUME_NONNULL_BEGIN

@protocol NSObject
- (Class)class;
- (BOOL)isKindOfClass:(Class)aClass;
- (BOOL)isEqual:(nullable id)object;
- (id)retain;
- (oneway void)release;
- (id)autorelease;
- (NSUInteger)retainCount;
@end

@interface NSObject (DoubleOfTheProtocol) <NSObject>
- (Class)class;
- (BOOL)isKindOfClass:(Class)aClass;
- (BOOL)isEqual:(nullable id)object;
@end

typedef NSUInteger NSStringEncoding;
enum : NSStringEncoding {
    NSASCIIStringEncoding = 1,
    NSUTF8StringEncoding = 4,
};

@interface NSString (DoubleOfTexts)
+ (nullable instancetype)stringWithUTF8String:(const char*)nullTerminatedCString;
- (nullable instancetype)initWithBytes:(const void*)bytes
                                length:(NSUInteger)len
                              encoding:(NSStringEncoding)encoding;
- (BOOL)isEqualToString:(NSString*)aString;
@end

typedef struct {
    unsigned long state;
    id __unsafe_unretained _Nullable* _Nullable itemsPtr;
    unsigned long* _Nullable mutationsPtr;
    unsigned long extra[5];
} NSFastEnumerationState;

@protocol NSFastEnumeration
- (NSUInteger)countByEnumeratingWithState:(NSFastEnumerationState*)state
                                  objects:(id __unsafe_unretained _Nullable* _Nonnull)buffer
                                    count:(NSUInteger)len;
@end

@interface NSArray<__covariant ObjectType> : NSObject <NSFastEnumeration> {
    id* objects;
    NSUInteger size;
}
+ (instancetype)array;
+ (instancetype)arrayWithObjects:(ObjectType)firstObj, ... NS_REQUIRES_NIL_TERMINATION;
+ (instancetype)arrayWithObjects:(const ObjectType _Nonnull* _Nonnull)objects count:(NSUInteger)cnt;
@property(readonly) NSUInteger count;
- (ObjectType)objectAtIndex:(NSUInteger)index;
@property(nullable, nonatomic, readonly) ObjectType firstObject;
@end

// The class holds at most one entry, because the program needs no more.
@interface NSDictionary<__covariant KeyType, __covariant ObjectType> : NSObject {
    id onlyKey;
    id onlyObject;
}
+ (instancetype)dictionary;
+ (instancetype)dictionaryWithObject:(ObjectType)object forKey:(KeyType)key;
- (nullable ObjectType)objectForKey:(KeyType)aKey;
@end

@interface NSURL : NSObject {
    NSString* text;
    char* filePath;
}
+ (nullable instancetype)URLWithString:(NSString*)URLString;
+ (NSURL*)fileURLWithPath:(NSString*)path isDirectory:(BOOL)isDir;
@property(nullable, readonly, copy) NSString* absoluteString;
@property(readonly) const char* fileSystemRepresentation;
@end

typedef NSString* NSErrorDomain;
typedef NSString* NSErrorUserInfoKey;
extern NSErrorUserInfoKey const NSLocalizedDescriptionKey;

@interface NSError : NSObject {
    NSDictionary* info;
}
+ (instancetype)errorWithDomain:(NSErrorDomain)domain
                           code:(NSInteger)code
                       userInfo:(nullable NSDictionary<NSErrorUserInfoKey, id>*)dict;
@property(readonly, copy) NSString* localizedDescription;
@end

@interface NSBundle : NSObject
@property(class, readonly, strong) NSBundle* mainBundle;
@property(nullable, readonly, copy) NSDictionary<NSString*, id>* infoDictionary;
@property(nullable, readonly, copy) NSString* executablePath;
@end

typedef NS_ENUM(NSUInteger, NSSearchPathDirectory) {
    NSApplicationDirectory = 1,
    NSLibraryDirectory = 5,
    NSCachesDirectory = 13,
    NSApplicationSupportDirectory = 14,
};

typedef NS_OPTIONS(NSUInteger, NSSearchPathDomainMask) {
    NSUserDomainMask = 1,
    NSLocalDomainMask = 2,
    NSNetworkDomainMask = 4,
    NSSystemDomainMask = 8,
    NSAllDomainsMask = 0x0ffff,
};

@interface NSFileManager : NSObject
@property(class, readonly, strong) NSFileManager* defaultManager;
- (NSArray<NSURL*>*)URLsForDirectory:(NSSearchPathDirectory)directory
                           inDomains:(NSSearchPathDomainMask)domainMask;
@end

NS_ASSUME_NONNULL_END

#endif
