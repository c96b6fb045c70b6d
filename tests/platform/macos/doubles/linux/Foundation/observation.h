// Declares notifications and key-value observing.
#pragma once

#include <Foundation/values.h>

#ifdef __OBJC__

NS_ASSUME_NONNULL_BEGIN

typedef NSString* NSNotificationName;

@interface NSNotification : NSObject {
    NSString* ownName;
    id ownObject;
    NSDictionary* ownUserInfo;
}
+ (instancetype)notificationWithName:(NSNotificationName)aName
                              object:(nullable id)anObject
                            userInfo:(nullable NSDictionary*)aUserInfo;
@property(readonly, copy) NSNotificationName name;
@property(nullable, readonly, retain) id object;
@property(nullable, readonly, copy) NSDictionary* userInfo;
@end

@class NSOperationQueue;

@interface NSNotificationCenter : NSObject {
    struct DoubleOfRegistrations* registrations;
}
- (void)postNotificationName:(NSNotificationName)aName
                      object:(nullable id)anObject
                    userInfo:(nullable NSDictionary*)aUserInfo;
- (id<NSObject>)addObserverForName:(nullable NSNotificationName)name
                            object:(nullable id)obj
                             queue:(nullable NSOperationQueue*)queue
                        usingBlock:(void (^)(NSNotification* notification))block;
- (void)removeObserver:(id)observer;
@end

typedef NS_OPTIONS(NSUInteger, NSKeyValueObservingOptions) {
    NSKeyValueObservingOptionNew = 0x01,
    NSKeyValueObservingOptionOld = 0x02,
    NSKeyValueObservingOptionInitial = 0x04,
    NSKeyValueObservingOptionPrior = 0x08,
};

typedef NSString* NSKeyValueChangeKey;

@interface NSObject (NSKeyValueObserving)
- (void)observeValueForKeyPath:(nullable NSString*)keyPath
                      ofObject:(nullable id)object
                        change:(nullable NSDictionary<NSKeyValueChangeKey, id>*)change
                       context:(nullable void*)context;
@end

@interface NSObject (NSKeyValueObserverRegistration)
- (void)addObserver:(NSObject*)observer
         forKeyPath:(NSString*)keyPath
            options:(NSKeyValueObservingOptions)options
            context:(nullable void*)context;
- (void)removeObserver:(NSObject*)observer
            forKeyPath:(NSString*)keyPath
               context:(nullable void*)context;
@end

@interface NSObject (NSKeyValueObserverNotification)
- (void)willChangeValueForKey:(NSString*)key;
- (void)didChangeValueForKey:(NSString*)key;
@end

NS_ASSUME_NONNULL_END

#endif
