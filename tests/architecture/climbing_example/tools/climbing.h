// An example for the check of climbing includes; never compiled.
#include "../secret/inner.h"
