// A source whose test is in another folder.
