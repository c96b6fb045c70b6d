// An example of a header with a label that a reader overlooks.
//
// Units:   seconds; any size. Thread:  any.
// Errors:  none.
#pragma once
