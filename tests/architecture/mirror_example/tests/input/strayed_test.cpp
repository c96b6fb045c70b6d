// A test in the wrong folder.
