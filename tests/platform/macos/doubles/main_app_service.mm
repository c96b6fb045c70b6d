#include "doubles/main_app_service.h"

#include "doubles/journal.h"

#import <ServiceManagement/ServiceManagement.h>

namespace glidemap::test {

MainAppService& mainAppService() {
    static MainAppService settings;
    return settings;
}

namespace {

SMAppService* theService;

NSError* errorOf(const std::string& reason) {
    NSString* const text = [NSString stringWithUTF8String:reason.c_str()];
    return [NSError errorWithDomain:@"SMAppServiceErrorDomain"
                               code:1
                           userInfo:[NSDictionary dictionaryWithObject:text
                                                                forKey:NSLocalizedDescriptionKey]];
}

// Sets the error even on success, so that tests detect a caller that reads the error without
// checking the result.
BOOL answer(NSError** error) {
    const MainAppService& settings = mainAppService();
    if (settings.reason && error != nullptr) {
        *error = errorOf(*settings.reason);
    }
    return !settings.refuses;
}

} // namespace

void closeMainAppService() {
    [theService release];
    theService = nil;
}

} // namespace glidemap::test

using namespace glidemap::test;

@implementation SMAppService
+ (SMAppService*)mainAppService {
    note("mainAppService");
    if (theService == nil) {
        theService = [[SMAppService alloc] init];
    }
    return theService;
}
- (SMAppServiceStatus)status {
    note("status");
    return static_cast<SMAppServiceStatus>(mainAppService().status);
}
- (BOOL)registerAndReturnError:(NSError**)error {
    note("registerAndReturnError");
    return answer(error);
}
- (BOOL)unregisterAndReturnError:(NSError**)error {
    note("unregisterAndReturnError");
    return answer(error);
}
@end
