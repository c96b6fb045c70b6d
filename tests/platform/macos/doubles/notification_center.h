// A notification center that keeps the journal.
#pragma once

#include <Foundation/Foundation.h>

@interface RecordingNotificationCenter : NSNotificationCenter
@end
