// A test in the folder that corresponds to its source's folder.
