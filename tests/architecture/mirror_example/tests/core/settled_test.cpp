// A test in the folder of its source.
