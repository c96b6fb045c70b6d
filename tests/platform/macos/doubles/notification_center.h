// A notification center that records added and removed observers in the tests' journal.
#pragma once

#include <Foundation/Foundation.h>

@interface RecordingNotificationCenter : NSNotificationCenter
@end
