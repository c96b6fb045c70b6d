// expected: cannot initialize a variable of type 'CGEventRef
#include <ApplicationServices/ApplicationServices.h>

CGEventRef (*create)(CGEventSourceRef, int, bool) = &CGEventCreateKeyboardEvent;
