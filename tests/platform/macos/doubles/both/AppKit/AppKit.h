#pragma once

#include <AppKit/NSAppearance.h>
#include <AppKit/NSApplication.h>
#include <AppKit/NSRunningApplication.h>
#include <AppKit/NSStatusBarButton.h>
#include <AppKit/NSWorkspace.h>
