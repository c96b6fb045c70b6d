// The fixture for tests of the bundle and of the user's folders.
#pragma once

#include "cocoa_test.h"
#include "doubles/files.h"

namespace glidemap {

class FilesTest : public CocoaTest {
protected:
    FilesTest() { test::files() = {}; }
    ~FilesTest() override { test::closeFiles(); }
};

} // namespace glidemap
