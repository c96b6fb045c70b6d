// A source whose test is in the same folder.
