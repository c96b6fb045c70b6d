#pragma once

#include <AppKit/NSApplication.h>
#include <AppKit/NSWorkspace.h>
