#pragma once

#include <Foundation/Foundation.h>

#ifdef __OBJC__

NS_ASSUME_NONNULL_BEGIN

typedef NS_ENUM(NSInteger, SMAppServiceStatus) {
    SMAppServiceStatusNotRegistered,
    SMAppServiceStatusEnabled,
    SMAppServiceStatusRequiresApproval,
    SMAppServiceStatusNotFound,
};

@interface SMAppService : NSObject
@property(class, readonly) SMAppService* mainAppService;
- (BOOL)registerAndReturnError:(NSError* _Nullable* _Nullable)error;
- (BOOL)unregisterAndReturnError:(NSError* _Nullable* _Nullable)error;
@property(readonly) SMAppServiceStatus status;
@end

NS_ASSUME_NONNULL_END

#endif
